// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The alternatives of a pattern for file names, such as "*.hlc;*.hlb". FolderReader.h tells what they mean.
class NamePatterns {
public:
  explicit NamePatterns(std::string_view alternatives);

  bool Match(std::string_view name) const;

private:
  std::vector<std::string> mFolded;
};

} // namespace turfdesk
