// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string>
#include <string_view>

namespace turfdesk {

// The files that the game leaves in its own folder, by key: its statistics of a course and its swap file of a library.
// Only their places are known here; nothing but the two routines that delete them touches them.

/// "" for a key that is no GUID, which the game has no such file of.
std::string CourseStatsPath(const SharedState &state, std::string_view courseKey);
std::string LibrarySwapFilePath(const SharedState &state, std::string_view libraryKey);

// Each is true when no such file is left; else, also where that cannot be known, the reason is in GetLastFileError.
bool DeleteCourseStats(SharedState &state, std::string_view courseKey);
bool DeleteLibrarySwapFile(SharedState &state, std::string_view libraryKey);

} // namespace turfdesk
