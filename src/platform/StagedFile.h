// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace turfdesk {

/// A file being written under a temporary name in its destination's folder. Nothing of it stays unless Commit is
/// called. Every failure throws RuntimeError: 61 disk full, 57 anything else that the device reports.
class StagedFile {
public:
  StagedFile() = default;
  StagedFile(const StagedFile &) = delete;
  StagedFile &operator=(const StagedFile &) = delete;
  virtual ~StagedFile() = default;

  virtual void Write(std::span<const std::uint8_t> data) = 0;
  /// Moves the place of the next Write to an offset from the start, at most the size so far.
  virtual void Seek(std::uint64_t offset) = 0;
  virtual std::uint64_t Tell() = 0;
  /// The modification time that the file will bear, in seconds since 1970. Without a call it is that of the last write.
  virtual void SetModificationTime(std::int64_t seconds) = 0;
  /// Flushes the data to disk where flush is set, and gives the file its name, replacing what stood there: of a link
  /// the link itself, never what it leads to. Also throws 75 when a read-only file or a folder stands there, 70 when
  /// another program has that file open and does not let it be replaced, and what Create throws for a folder that has
  /// gone. Nothing can be written afterwards. After a failure the name bears what it bore before, or, where only the
  /// very last flush failed, the whole new file in place of an old one.
  virtual void Commit(bool flush) = 0;
};

/// Makes staged files, by Windows path in UTF-8.
class StagedFiles {
public:
  StagedFiles() = default;
  StagedFiles(const StagedFiles &) = delete;
  StagedFiles &operator=(const StagedFiles &) = delete;
  virtual ~StagedFiles() = default;

  /// Begins a file for this destination. With makeFolders, missing folders of the path are made. Throws RuntimeError:
  /// 76 folder missing, 75 folder not writable or the destination is read-only or a folder, 68 or 71 drive missing or
  /// not ready, 52 a name that no file can have, 61 disk full, 70 another program has the destination open and does not
  /// let it be replaced.
  virtual std::unique_ptr<StagedFile> Create(std::string_view destination, bool makeFolders) = 0;
  /// Are both paths one file, or one folder, however they are named (case, link, drive alias)? False where either is
  /// missing.
  virtual bool IsSameFile(std::string_view first, std::string_view second) = 0;
  /// Bytes that can still be written to the disk that a folder lies on. Throws 76, 68 or 71 as Create does.
  virtual std::uint64_t FreeBytes(std::string_view folder) = 0;
};

} // namespace turfdesk
