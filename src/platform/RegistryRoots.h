// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"

#include <optional>
#include <string_view>

namespace turfdesk {

/// The root's name, such as "HKEY_LOCAL_MACHINE".
std::string_view NameOfRoot(RegistryRoot root);

/// The root of this name, without regard to case; none where the program knows no such root.
std::optional<RegistryRoot> RootNamed(std::string_view name);

} // namespace turfdesk
