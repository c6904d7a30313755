// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/zip/ArchiveReader.h"

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The entries of a list that are each followed by a carriage return. The last one may lack it; empty ones are left
/// out.
std::vector<std::string> SplitList(std::string_view list);

/// The part of a Windows path behind its last backslash.
std::string_view BareFileName(std::string_view path);

/// Which files of an archive FilesToProcess selects.
class EntrySelection {
public:
  explicit EntrySelection(std::string_view filesToProcess);

  /// The selected ones of an archive's files, in its order. Patterns are held against the whole name, where * also
  /// stands for folders, and against the bare file name. What has neither * nor ? is the whole name of one file: of
  /// several files of that name the last, and one with exactly these letters before one with other case.
  std::vector<ArchiveEntry> From(const std::vector<ArchiveEntry> &entries) const;

private:
  bool MatchesPattern(std::string_view foldedName) const;

  std::vector<std::string> mPatterns;
  std::vector<std::string> mNames;
};

} // namespace turfdesk
