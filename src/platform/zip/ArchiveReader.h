// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/zip/CallbackSource.h"
#include "platform/zip/ZipStatus.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// A file in an archive.
struct ArchiveEntry {
  zip_uint64_t index = 0;
  /// Where it goes below the folder that the archive is extracted to, backslashes between folders.
  std::string name;
  /// Can a file bear the name?
  bool isNameUsable = true;
  /// Why the file cannot be extracted, or Done.
  ZipStatus status = ZipStatus::Done;
  /// Uncompressed, as the archive states it.
  std::uint64_t size = 0;
  std::uint32_t crc = 0;
  /// Seconds since 1970.
  std::int64_t modified = 0;
};

/// An archive that has been opened and whose directory is sound.
class ArchiveReader {
public:
  /// Throws ZipFault when the archive cannot be read or has no files. files must outlive the reader.
  ArchiveReader(BinaryFiles &files, std::string_view path);
  ArchiveReader(const ArchiveReader &) = delete;
  ArchiveReader &operator=(const ArchiveReader &) = delete;
  ~ArchiveReader();

  /// The archive's files, in its order. Folders and what archivers keep for themselves are not among them.
  const std::vector<ArchiveEntry> &Entries() const { return mEntries; }

  /// Hands the file's content on, piece by piece: exactly as many bytes as stated, whatever the data holds. Throws
  /// ZipFault when the data is damaged, differs in length from what is stated or in its checksum; by then pieces have
  /// been handed on.
  using Sink = std::function<void(std::span<const std::uint8_t> piece)>;
  void Read(const ArchiveEntry &entry, const Sink &sink);

private:
  void Open();
  void ReadDirectory();

  CallbackFailure mFailure;
  std::unique_ptr<BinaryFile> mFile;
  std::unique_ptr<CallbackSource> mSource;
  ArchiveHandle mArchive;
  std::vector<ArchiveEntry> mEntries;
  std::vector<std::uint8_t> mBuffer;
};

} // namespace turfdesk
