// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <string_view>

namespace turfdesk {

/// Questions and deeds on files, by path. Paths are full Windows paths in UTF-8, such as "C:\Games\x.hlc".
/// Where a name with exactly these letters is absent, one that differs only in case is found.
class FileService {
public:
  FileService() = default;
  FileService(const FileService &) = delete;
  FileService &operator=(const FileService &) = delete;
  virtual ~FileService() = default;

  // These work on the text alone, which is the same on every system.

  /// The file name without its extension and without the dot.
  static std::string GetBaseName(std::string_view path);
  /// The directory part, without a trailing backslash except that of a drive's root ("C:\").
  static std::string GetPathPart(std::string_view path);
  /// The extension with its leading dot, or "" when there is none.
  static std::string GetExtension(std::string_view path);
  /// The file name with its extension.
  static std::string GetFilePart(std::string_view path);
  /// The directory part with its trailing backslash, or "" when the path has no directory.
  static std::string GetDirPrefix(std::string_view path);

  /// Zero when the last operation succeeded.
  virtual long LastError() const = 0;
  /// Words for the last failure, fit to show to a user.
  virtual std::string LastErrorText() const = 0;
  /// Deletes the file; true when that worked, else the reason is in LastErrorText. A read-only file stays.
  virtual bool DeleteFile(std::string_view path) = 0;
  virtual bool DirExists(std::string_view path) = 0;
  /// True for a file of any kind that is no directory.
  virtual bool FileExists(std::string_view path) = 0;
  /// False only when it is known that there is no such file. Where the way to it is closed, its drive not ready or its
  /// device failing, it may be there though FileExists gives false.
  virtual bool FileMayExist(std::string_view path) = 0;
  /// A folder of this process alone for temporary files. It exists and is gone when the process ends.
  virtual std::string GetTempFolder() = 0;
  /// Can the text name a file to be created: a full path in an existing folder, with a last component that every
  /// Windows system accepts and that is not the name of a folder?
  virtual bool IsValidFilename(std::string_view text) = 0;
  /// Size in bytes; 0 for a missing or empty path.
  virtual double GetFileSize(std::string_view path) = 0;
  /// Hands an address or a path to the desktop's default handler. Failure shows in LastError and LastErrorText.
  virtual void OpenDocument(std::string_view addressOrPath) = 0;
};

} // namespace turfdesk
