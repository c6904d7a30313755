// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/CaseFold.h"
#include "platform/RuntimeError.h"
#include "platform/StagedFile.h"

#include <algorithm>
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

  std::unique_ptr<BinaryFile> OpenForBinaryRead(std::string_view path) override {
    ThrowIf(openError);
    const auto file = files.find(std::string(path));
    return file == files.end() ? nullptr : std::make_unique<OpenFile>(*this, file->second);
  }
  std::unique_ptr<StagedFile> Create(std::string_view destination, bool makeFolders) override {
    ThrowIf(createError);
    const std::string folder(destination.substr(0, destination.rfind('\\')));
    if (makeFolders)
      folders.insert(folder);
    FreeBytes(folder);
    return std::make_unique<NewFile>(*this, destination);
  }
  bool IsSameFile(std::string_view first, std::string_view second) override {
    return EqualsIgnoringCase(first, second);
  }
  std::uint64_t FreeBytes(std::string_view folder) override {
    if (!folders.contains(std::string(folder)))
      throw RuntimeError(ErrorNumber::PathNotFound);
    return freeBytes;
  }

private:
  static void ThrowIf(const std::optional<ErrorNumber> &error) {
    if (error)
      throw RuntimeError(*error);
  }

  class OpenFile final : public BinaryFile {
  public:
    OpenFile(const FakeDisk &disk, const File &file) : mDisk(disk), mFile(file) {}

    std::size_t Read(std::span<std::uint8_t> buffer) override {
      const Bytes &content = mFile.content;
      const std::size_t start = std::min<std::size_t>(mPosition, content.size());
      const std::size_t count = std::min(buffer.size(), content.size() - start);
      if (start <= mDisk.readErrorAt && mDisk.readErrorAt < start + count)
        ThrowIf(mDisk.readError);
      std::copy_n(content.begin() + static_cast<std::ptrdiff_t>(start), count, buffer.begin());
      mPosition += count;
      return count;
    }
    void Seek(std::uint64_t offset) override { mPosition = offset; }
    std::uint64_t Size() override { return mFile.content.size(); }
    std::int64_t ModificationTime() override { return mFile.modified; }

  private:
    const FakeDisk &mDisk;
    const File &mFile;
    std::uint64_t mPosition = 0;
  };

  class NewFile final : public StagedFile {
  public:
    NewFile(FakeDisk &disk, std::string_view path) : mDisk(disk), mPath(path) { ++mDisk.stagedNow; }
    ~NewFile() override { --mDisk.stagedNow; }

    void Write(std::span<const std::uint8_t> data) override {
      ThrowIf(mDisk.writeError);
      mDisk.bytesWritten += data.size();
      if (mDisk.bytesWritten > mDisk.room)
        throw RuntimeError(ErrorNumber::DiskFull);
      mFile.content.resize(std::max(mFile.content.size(), mPosition + data.size()));
      std::copy(data.begin(), data.end(), mFile.content.begin() + static_cast<std::ptrdiff_t>(mPosition));
      mPosition += data.size();
    }
    void Seek(std::uint64_t offset) override { mPosition = offset; }
    std::uint64_t Tell() override { return mPosition; }
    void SetModificationTime(std::int64_t seconds) override { mFile.modified = seconds; }
    void Commit(bool flush) override {
      ThrowIf(mDisk.commitError);
      mDisk.flushes += flush ? 1 : 0;
      mDisk.files[mPath] = std::move(mFile);
    }

  private:
    FakeDisk &mDisk;
    std::string mPath;
    File mFile;
    std::size_t mPosition = 0;
  };
};

} // namespace turfdesk
