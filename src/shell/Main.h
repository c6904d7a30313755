// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The start of the program, before any window exists: creates the services and fills the shared state. arguments is
/// what stood behind the program's name. It is one file path as a whole, in double quotes or not: where that has blanks
/// it arrives in pieces. It is several only when each by itself is a full path or a file's address, or names a file.
/// False means that the program must end at once.
bool Main(SharedState &state, const std::vector<std::string> &arguments);

/// The same for a path in one piece, or "".
bool Main(SharedState &state, std::string_view commandTail);

} // namespace turfdesk
