// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string_view>

namespace turfdesk {

// The game's own files for a course or a library. They lie under InstallDir by key, wherever the course itself lies, and
// are only ever deleted here. Both routines are true when no such file is left; an absent file counts as deleted. The
// reason for false is in GetLastFileError.

/// Deletes the statistics that the game has gathered for a course.
bool DeleteCourseStats(SharedState &state, std::string_view courseKey);
/// Deletes the swap file that the game keeps for a library.
bool DeleteLibrarySwapFile(SharedState &state, std::string_view libraryKey);

} // namespace turfdesk
