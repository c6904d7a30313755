// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/zip/ZipStatus.h"

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The name of an entry as the place of a file below the folder that the archive is extracted to.
struct EntryName {
  /// Backslashes between folders. Where no file can bear the name it is as it was given, but for those.
  std::string text;
  /// Done when a file can bear the name on every Windows disk and lies inside the folder.
  ZipStatus status = ZipStatus::Done;
  /// Does it end in a separator?
  bool isFolder = false;
  /// Is it one that an archiver makes for what another system knows of a file?
  bool isRecord = false;
};

/// stored is the name as the archive has it, in UTF-8, with slashes or backslashes. Parts that are empty or a dot mean
/// nothing, as on any disk; at its beginning an empty one leads out of the folder.
EntryName ReadEntryName(std::string_view stored);

/// Would two of these names be the same file, ignoring case, or one of them a folder of another?
bool NamesClash(const std::vector<std::string> &names);

} // namespace turfdesk
