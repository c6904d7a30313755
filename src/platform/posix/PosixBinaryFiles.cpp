// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PosixBinaryFiles.h"

#include "platform/posix/Descriptor.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

namespace turfdesk {

namespace {

struct stat StatusOf(const Descriptor &file) {
  struct stat status;
  if (fstat(file.Number(), &status) != 0)
    ThrowSystemError(errno);
  return status;
}

class PosixBinaryFile final : public BinaryFile {
public:
  PosixBinaryFile(Descriptor file, std::uint64_t size) : mFile(std::move(file)), mSizeAtOpening(size) {}

  std::size_t Read(std::span<std::uint8_t> buffer) override {
    std::size_t total = 0;
    while (total < buffer.size()) {
      const ssize_t count = pread(mFile.Number(), buffer.data() + total, buffer.size() - total, Offset());
      if (count < 0 && errno == EINTR)
        continue;
      if (count < 0)
        ThrowSystemError(errno);
      total += static_cast<std::size_t>(count);
      mPosition += static_cast<std::uint64_t>(count);
      // A read that came to the known end needs no further one to be told so.
      if (count == 0 || mPosition == mSizeAtOpening)
        break;
    }
    return total;
  }

  void Seek(std::uint64_t offset) override { mPosition = offset; }

  std::uint64_t Size() override { return mSizeAtOpening; }

  std::int64_t ModificationTime() override { return StatusOf(mFile).st_mtim.tv_sec; }

private:
  off_t Offset() const { return static_cast<off_t>(mPosition); }

  Descriptor mFile;
  std::uint64_t mSizeAtOpening;
  std::uint64_t mPosition = 0;
};

/// Missing, in a missing folder, on a drive that is missing or not ready.
bool IsAbsence(int error) { return error == ENOENT || error == ENOTDIR || error == ENODEV || error == ENOMEDIUM; }

} // namespace

std::unique_ptr<BinaryFile> PosixBinaryFiles::OpenForBinaryRead(std::string_view path) {
  Descriptor file;
  const int error = mPaths.Reach(path, [&file](const char *hostPath) {
    // Without O_NONBLOCK a pipe would be waited for.
    file = Descriptor(open(hostPath, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    return file.IsOpen() ? 0 : errno;
  });
  if (IsAbsence(error))
    return nullptr;
  if (error != 0)
    ThrowSystemError(error);
  const struct stat status = StatusOf(file);
  if (S_ISDIR(status.st_mode))
    return nullptr;
  if (!S_ISREG(status.st_mode))
    ThrowSystemError(EACCES);
  return std::make_unique<PosixBinaryFile>(std::move(file), static_cast<std::uint64_t>(status.st_size));
}

} // namespace turfdesk
