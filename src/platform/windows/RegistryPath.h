// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace turfdesk {

/// The registry's form of a key path as RegistryService describes it. False when it can name no key: a part is empty
/// or too long, there are too many, or there is a NUL in it.
bool ToKeyPath(std::string_view keyPath, std::wstring &path);

/// The path of a key directly below another, which may be a root.
std::wstring SubkeyPath(std::wstring path, const std::wstring &name);

/// The system's words for a failure, and the key that it has to do with.
std::string RegistryWords(std::uint32_t error, RegistryRoot root, std::string_view keyPath);

/// Throws them as a RuntimeError.
[[noreturn]] void ThrowRegistryError(std::uint32_t error, RegistryRoot root, std::string_view keyPath);

} // namespace turfdesk
