// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string_view>

namespace turfdesk {

// The files that the game leaves in its own folder, by key. Only their places are known here; nothing but these two
// routines touches them. Each is true when no such file is left; else the reason is in GetLastFileError.

/// The game's statistics of a course.
bool DeleteCourseStats(SharedState &state, std::string_view courseKey);

/// The game's swap file of a library.
bool DeleteLibrarySwapFile(SharedState &state, std::string_view libraryKey);

} // namespace turfdesk
