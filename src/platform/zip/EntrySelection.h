// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

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

  /// Is the file selected? name has backslashes between its folders. Patterns are held against the whole name, where *
  /// also stands for folders, and against the bare file name. What has neither * nor ? is the whole name of one file.
  bool Selects(std::string_view name) const;

private:
  std::vector<std::string> mPatterns;
};

} // namespace turfdesk
