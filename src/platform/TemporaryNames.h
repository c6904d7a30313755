// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace turfdesk {

/// Names of temporary files or folders: a beginning, six random letters and digits, and an end.
struct TemporaryNames {
  static constexpr std::size_t RandomLength = 6;

  std::string_view beginning;
  std::string_view end;

  bool Include(std::string_view name) const {
    return name.size() == beginning.size() + RandomLength + end.size() && name.starts_with(beginning) &&
           name.ends_with(end);
  }
};

/// What a file is written under until it has its own name.
inline constexpr TemporaryNames StagedFileNames{".turfdesk-", ".tmp"};
/// What a file is set aside under that is about to be replaced: the beginning, six random letters and digits, a dash
/// and the file's own name. Longer than any of StagedFileNames, so that it is never taken for one of those.
inline constexpr std::string_view SetAsideBeginning = ".turfdesk-kept-";

/// The name that a file had before it was set aside; nothing for any other name.
inline std::optional<std::string> NameBeforeSetAside(std::string_view name) {
  constexpr std::size_t length = SetAsideBeginning.size() + TemporaryNames::RandomLength + 1;
  if (!name.starts_with(SetAsideBeginning) || name.size() <= length || name[length - 1] != '-')
    return std::nullopt;
  return std::string(name.substr(length));
}

/// Folders of running programs for what they need for a while.
inline constexpr TemporaryNames TempFolderNames{"turfdesk-temp-", ""};

} // namespace turfdesk
