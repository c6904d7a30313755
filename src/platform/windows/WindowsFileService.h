// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FileService.h"

#include <cstdint>

namespace turfdesk {

class WindowsFileService final : public FileService {
public:
  long LastError() const override { return mLastError; }
  std::string LastErrorText() const override { return mLastErrorText; }
  /// Of a link, the link is deleted.
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
  bool Record(std::uint32_t error);

  long mLastError = 0;
  std::string mLastErrorText;
  std::string mTempFolder;
};

} // namespace turfdesk
