// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"

#include <string>
#include <string_view>

namespace turfdesk {

/// Host path of the folder that the program keeps its own files in: the chosen one, or when that is empty
/// $TURFDESK_HOME, $XDG_DATA_HOME/turfdesk or ~/.local/share/turfdesk, whichever is set first. "" for a relative one
/// when the current folder is gone.
std::string HomeFolder(std::string_view chosen);

/// Makes the home folder where it is missing, parents included, and in it the folder of the drives with the links that
/// it starts with. For this user alone. Throws RuntimeError, with words fit to show, when that does not work, also for
/// "".
void MakeHome(const std::string &home);

/// What to say of a home whose folder of drives has none.
RuntimeError NoDrives(const std::string &home);

/// Makes the links that a folder of drives starts with where it has no drive at all. Gives the words for what was done,
/// or why it could not be, CR LF between lines; "" when there are drives.
std::string RepairDrives(const std::string &home);

} // namespace turfdesk
