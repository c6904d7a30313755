// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/zip/ZipStatus.h"

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// Judges the name of an entry, backslashes between its folders and none at its end, as the place of a file below the
/// folder that the archive is extracted to. Gives ZipStatus::Done when a file can bear that name on every Windows disk
/// and lies inside the folder.
ZipStatus CheckEntryName(std::string_view name);

/// Would two of these names be the same file, ignoring case, or one of them a folder of another? Folders that have an
/// entry of their own are given with a backslash at the end, and may repeat.
bool NamesClash(const std::vector<std::string> &names);

} // namespace turfdesk
