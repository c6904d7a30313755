// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>

namespace turfdesk {

/// Makes a folder in another one, under a name that nothing had before. It is removed with all that it holds when this
/// process exits. What a process that was killed has left behind in the same place is removed now. Both are system
/// paths; gives "" when the folder cannot be made there.
std::wstring MakeTempFolder(const std::wstring &parent);

/// Removes all that were made, as the end of the process does, when it is ended by other means than exit. For any
/// thread. False when something in them is in use.
bool RemoveTempFolders();

} // namespace turfdesk
