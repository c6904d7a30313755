// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string_view>

namespace turfdesk {

/// The command: asks about the selected row of the list that commands act on, uninstalls it and tells the outcome. True
/// when the course or library is gone.
bool UninstallSelected(SharedState &state);

// Both delete files first and the catalogue key last, and take the row out of its list. Before the first file goes, the
// deletion of the key is reserved and the catalogue must be as it was loaded; what another process has changed while a
// question stood stops the work. The reason has been shown when the result is false. A file that cannot be deleted
// stays, and the rest goes.

/// Deletes a course with its media and statistics, and asks about each library of its library list that no other
/// course uses. False when its key could not be deleted.
bool UninstallCourse(SharedState &state, std::string_view courseKey, std::string_view libraryList);

/// Deletes a library with its swap file. With askIfUsed the user is asked about each course that uses it. False when he
/// refuses or its key could not be deleted.
bool UninstallLibrary(SharedState &state, std::string_view libraryKey, bool askIfUsed);

} // namespace turfdesk
