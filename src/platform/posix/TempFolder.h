// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>

namespace turfdesk {

/// Makes a folder in a folder of the host, under a name that nothing had before and for this user alone. It is removed
/// with all that it holds when this process exits or is ended by a signal; processes forked from this one leave it
/// alone. What a process that was killed has left behind in the same place is removed now. Gives the new folder's host
/// path, or "" when it cannot be made there.
std::string MakeTempFolder(const std::string &parent);

} // namespace turfdesk
