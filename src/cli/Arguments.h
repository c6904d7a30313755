// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "cli/Commands.h"

#include <string>

namespace turfdesk {

// What commands make of their arguments. What is wrong with one has been shown when a routine gives "" or null.

/// The Windows form of a host or Windows path.
std::string TakePath(SharedState &state, const std::string &given);

/// The same for a folder, which has to exist.
std::string TakeFolder(SharedState &state, const std::string &given);

/// Shows what is wrong with a path.
void ShowPathError(SharedState &state, const std::string &path, const std::string &words);

/// Does key (without regard to case) or name stand for a row of the list, or for several?
bool IsNamed(const ListView &list, const std::string &name);

/// The row that key or name stands for. Null when there is none or a name stands for several. what is such as "course".
Row *FindByKeyOrName(CommandContext &context, const ListView &list, const std::string &name, const std::string &what);

} // namespace turfdesk
