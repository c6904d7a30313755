// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FileService.h"
#include "platform/posix/ChildProcesses.h"
#include "platform/posix/PathMap.h"

namespace turfdesk {

class PosixFileService final : public FileService {
public:
  PosixFileService(const PathMap &paths, ChildProcesses &children) : mPaths(paths), mChildren(children) {}

  long LastError() const override { return mLastError; }
  std::string LastErrorText() const override { return mLastErrorText; }
  /// Only regular files and links are deleted; of a link, the link.
  bool DeleteFile(std::string_view path) override;
  bool DirExists(std::string_view path) override;
  bool FileExists(std::string_view path) override;
  bool FileMayExist(std::string_view path) override;
  /// Throws RuntimeError 75 when no place for it can be found.
  std::string GetTempFolder() override;
  bool IsValidFilename(std::string_view text) override;
  double GetFileSize(std::string_view path) override;
  void OpenDocument(std::string_view addressOrPath) override;

private:
  bool Record(int error);
  std::string MakeTempFolderOnDrive();

  const PathMap &mPaths;
  ChildProcesses &mChildren;
  long mLastError = 0;
  std::string mLastErrorText;
  std::string mTempFolder;
};

} // namespace turfdesk
