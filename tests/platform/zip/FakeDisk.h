// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/RuntimeError.h"
#include "platform/StagedFile.h"

#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace turfdesk {

/// A disk in memory that fails where a test says so. Paths are compared as they are written.
class FakeDisk final : public BinaryFiles, public StagedFiles {
public:
  using Bytes = std::vector<std::uint8_t>;
  struct File {
    Bytes content;
    std::int64_t modified = 0;
  };

  /// All that is on the disk under its final name. Open files follow changes made here.
  std::map<std::string, File> files;
  std::set<std::string> folders = {"C:\\Out"};

  std::uint64_t freeBytes = std::uint64_t{1} << 40;
  /// Bytes that can be written before the disk is full.
  std::uint64_t room = std::numeric_limits<std::uint64_t>::max();
  std::optional<ErrorNumber> openError;
  std::optional<ErrorNumber> readError;
  /// Which byte of a file the device cannot read.
  std::uint64_t readErrorAt = 0;
  std::optional<ErrorNumber> createError;
  std::optional<ErrorNumber> writeError;
  std::optional<ErrorNumber> commitError;

  /// What has happened on the disk.
  std::uint64_t bytesWritten = 0;
  int stagedNow = 0;
  int flushes = 0;

  std::unique_ptr<BinaryFile> OpenForBinaryRead(std::string_view path) override;
  std::unique_ptr<StagedFile> Create(std::string_view destination, bool makeFolders) override;
  bool IsSameFile(std::string_view first, std::string_view second) override;
  std::uint64_t FreeBytes(std::string_view folder) override;
};

} // namespace turfdesk
