// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace turfdesk {

/// Folders made for a file. Those that are still empty go with the object.
class NewFolders {
public:
  NewFolders() = default;
  NewFolders(const NewFolders &) = delete;
  NewFolders &operator=(const NewFolders &) = delete;
  ~NewFolders();

  /// Makes a folder (a system path) with its parents where they are missing. Gives 0 or the system's number of the
  /// failure.
  std::uint32_t Make(const std::wstring &folder);

private:
  std::vector<std::wstring> mFolders;
};

} // namespace turfdesk
