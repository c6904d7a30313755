// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"

#include <cstdint>
#include <string>

namespace turfdesk {

// Inside this folder a failure is a number of the system (GetLastError, or what a registry function gives); 0 is
// success.

/// The system's own words for a failure, in UTF-8 and without a line break at their end.
std::string SystemWords(std::uint32_t error);

/// The number that the program knows a failure of the system by.
ErrorNumber NumberOfSystemError(std::uint32_t error);

/// Throws RuntimeError with that number and its words, which are the same on every system.
[[noreturn]] void ThrowSystemError(std::uint32_t error);

/// The same where the path stands for a folder: what is missing then is no file but a path.
[[noreturn]] void ThrowFolderError(std::uint32_t error);

} // namespace turfdesk
