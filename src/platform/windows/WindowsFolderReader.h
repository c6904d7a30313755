// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FolderReader.h"

#include <cstdint>

namespace turfdesk {

/// What is hidden is left out, as the desktop does.
class WindowsFolderReader final : public FolderReader {
public:
  /// Includes those that are not ready.
  std::vector<std::string> Drives() override;
  std::vector<std::string> Subfolders(std::string_view folder) override;
  /// The pattern "*.*" stands for every file, also one without a dot.
  std::vector<std::string> Files(std::string_view folder, std::string_view pattern) override;
  /// The current folder, or where it may not be read, the root of the first drive that may.
  std::string StartFolder() override;
  std::string CanonicalFolder(std::string_view folder) override;
  bool MakeFolder(std::string_view path) override;
};

} // namespace turfdesk
