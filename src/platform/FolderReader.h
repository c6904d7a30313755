// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// What the drive, directory and file lists show. Names are UTF-8, sorted as people do (NameOrder.h); names
/// that no Windows path can express are left out.
class FolderReader {
public:
  FolderReader() = default;
  FolderReader(const FolderReader &) = delete;
  FolderReader &operator=(const FolderReader &) = delete;
  virtual ~FolderReader() = default;

  /// The drives there are, as "C:", in the order of their letters.
  virtual std::vector<std::string> Drives() = 0;
  /// Names of the folders in a folder. Throws RuntimeError: 68 no such drive, 71 the drive is not ready, 76 no such
  /// folder, 75 no access.
  virtual std::vector<std::string> Subfolders(std::string_view folder) = 0;
  /// Names of the files in a folder that fit one of the patterns, such as "*.hlc;*.hlb". The alternatives are split at
  /// semicolons; blanks around one do not count, nor does case. * stands for any text, ? for one character.
  /// Throws as Subfolders does.
  virtual std::vector<std::string> Files(std::string_view folder, std::string_view pattern) = 0;
  /// The folder that the lists start in when nothing else is known. It can be read, unless no drive can.
  virtual std::string StartFolder() = 0;
  /// The folder's full path with the names' own case, "." and ".." resolved and without a trailing backslash except
  /// that of a root ("C:\"). "c:" and "C:" mean the drive's root. Throws as Subfolders does.
  virtual std::string CanonicalFolder(std::string_view folder) = 0;
};

} // namespace turfdesk
