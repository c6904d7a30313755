// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FakeDisk.h"

#include "platform/CaseFold.h"

#include <algorithm>

namespace turfdesk {

namespace {

void ThrowIf(const std::optional<ErrorNumber> &error) {
  if (error)
    throw RuntimeError(*error);
}

class FakeBinaryFile final : public BinaryFile {
public:
  FakeBinaryFile(const FakeDisk &disk, const FakeDisk::File &file) : mDisk(disk), mFile(file) {}

  std::size_t Read(std::span<std::uint8_t> buffer) override {
    const FakeDisk::Bytes &content = mFile.content;
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
  const FakeDisk::File &mFile;
  std::uint64_t mPosition = 0;
};

class FakeStagedFile final : public StagedFile {
public:
  FakeStagedFile(FakeDisk &disk, std::string_view path) : mDisk(disk), mPath(path) { ++mDisk.stagedNow; }
  ~FakeStagedFile() override { --mDisk.stagedNow; }

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
  FakeDisk::File mFile;
  std::size_t mPosition = 0;
};

} // namespace

std::unique_ptr<BinaryFile> FakeDisk::OpenForBinaryRead(std::string_view path) {
  ThrowIf(openError);
  const auto file = files.find(std::string(path));
  return file == files.end() ? nullptr : std::make_unique<FakeBinaryFile>(*this, file->second);
}

std::unique_ptr<StagedFile> FakeDisk::Create(std::string_view destination, bool makeFolders) {
  ThrowIf(createError);
  const std::string folder(destination.substr(0, destination.rfind('\\')));
  if (makeFolders)
    folders.insert(folder);
  if (!folders.contains(folder))
    throw RuntimeError(ErrorNumber::PathNotFound);
  return std::make_unique<FakeStagedFile>(*this, destination);
}

bool FakeDisk::IsSameFile(std::string_view first, std::string_view second) { return EqualsIgnoringCase(first, second); }

std::uint64_t FakeDisk::FreeBytes(std::string_view folder) {
  if (!folders.contains(std::string(folder)))
    throw RuntimeError(ErrorNumber::PathNotFound);
  return freeBytes;
}

} // namespace turfdesk
