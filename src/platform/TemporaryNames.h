// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

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
/// Folders of running programs for what they need for a while.
inline constexpr TemporaryNames TempFolderNames{"turfdesk-temp-", ""};

} // namespace turfdesk
