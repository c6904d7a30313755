// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FolderReader.h"
#include "platform/posix/PathMap.h"

namespace turfdesk {

/// Names that begin with a dot are left out: they are hidden by the custom of the host, and so are the temporary names
/// of files that are being written.
class PosixFolderReader final : public FolderReader {
public:
  explicit PosixFolderReader(const PathMap &paths) : mPaths(paths) {}

  /// Includes those that are not ready.
  std::vector<std::string> Drives() override;
  std::vector<std::string> Subfolders(std::string_view folder) override;
  /// The pattern "*.*" stands for every file, also one without a dot.
  std::vector<std::string> Files(std::string_view folder, std::string_view pattern) override;
  /// The current folder, or where no drive leads to it or it may not be read, the root of the first drive that may.
  std::string StartFolder() override;
  std::string CanonicalFolder(std::string_view folder) override;
  bool MakeFolder(std::string_view path) override;

private:
  /// Gives 0 and the folder's canonical path, or the system's number of what keeps it from being read.
  int FindFolder(std::string_view folder, std::string &canonical) const;
  template <class Accept> std::vector<std::string> Names(std::string_view folder, mode_t kind, Accept accept) const;

  const PathMap &mPaths;
};

} // namespace turfdesk
