// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string_view>

namespace turfdesk {

// Each rebuilds the rows of one list from the catalogue, the courses always first: what other processes change is
// noticed from then on. The list that the commands act on has its first row selected afterwards, the other one none. An
// error is shown and ends the load; rows filled so far stay.
void LoadCourses(SharedState &state);
void LoadLibraries(SharedState &state);

/// Both.
void LoadLists(SharedState &state);

/// Has another process changed the catalogue since it was loaded? Throws RuntimeError when that cannot be told.
bool CatalogueChanged(SharedState &state);

/// For windows, at their activation and before a command begins: where another process has changed the catalogue, both
/// lists are loaded again, with the selection kept on its key where that still exists, and the user is told. The
/// command is not run then, for what it was to act on may be another row by now. True when that was so. False while a
/// CommandAtWork lives, whose rows must stay.
bool LoadAgainIfChanged(SharedState &state);

/// Where another process has changed the catalogue, or that cannot be told, a command does not go on. True when that is
/// so; the user has been told, with undone as the last word, such as "Nothing has been moved.".
bool StoppedByChange(SharedState &state, std::string_view undone);

/// The same for what depends on which course uses which library: it also stops where a course's file has been replaced
/// by one that asks for other libraries. The course's row shows these then.
bool StoppedByChangeOfUse(SharedState &state, std::string_view undone);

/// While one lives a command is at work, with references to rows.
class CommandAtWork {
public:
  explicit CommandAtWork(SharedState &state) : mState(state) { ++mState.commandsAtWork; }
  CommandAtWork(const CommandAtWork &) = delete;
  CommandAtWork &operator=(const CommandAtWork &) = delete;
  ~CommandAtWork() { --mState.commandsAtWork; }

private:
  SharedState &mState;
};

} // namespace turfdesk
