// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// Path of a converter, by its file name, in the folder of the companion programs. It need not exist. Throws what the
/// settings throw.
std::string ConverterPath(SharedState &state, std::string_view fileName);

/// Starts the converter at a path. Gives its process id; 0 after showing that it is missing or cannot be started, and
/// why.
std::uint32_t StartConverter(SharedState &state, const std::string &path, const std::vector<std::string> &arguments,
                             WindowStyle style);

} // namespace turfdesk
