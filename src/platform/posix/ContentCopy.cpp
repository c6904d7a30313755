// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/ContentCopy.h"

#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

namespace turfdesk {

namespace {

/// A window repaints after each; slow disks take some tenths of a second for one.
constexpr std::uint64_t ChunkBytes = 4U << 20U;

/// How much may wait for the disk. More would only make the flush at the end, in which nothing repaints, longer.
constexpr std::uint64_t UnwrittenBytes = 64U << 20U;

class Copying {
public:
  Copying(int source, int destination, std::uint64_t total, const FileCopier::Report &report)
      : mSource(source), mDestination(destination), mTotal(total), mReport(report) {}

  std::uint64_t Run() {
    if (mTotal > 0 && ioctl(mDestination, FICLONE, mSource) == 0) {
      mDone = mTotal;
      Tell();
      return mDone;
    }
    ReserveSpace();
    while (mDone < mTotal) {
      const std::uint64_t count = CopyChunk();
      if (count == 0)
        break;
      WriteBack(count);
      Tell();
    }
    AwaitWriteBack();
    return mDone;
  }

private:
  /// So that a disk that is too full is found out before the work is done. Only a disk that can tell is asked.
  void ReserveSpace() const {
    if (mTotal == 0 || fallocate(mDestination, 0, 0, static_cast<off_t>(mTotal)) == 0)
      return;
    if (NumberOfSystemError(errno) == ErrorNumber::DiskFull)
      ThrowSystemError(errno);
  }

  std::uint64_t CopyChunk() {
    const std::uint64_t wanted = std::min(ChunkBytes, mTotal - mDone);
    if (mKernelCopies) {
      const ssize_t count = copy_file_range(mSource, nullptr, mDestination, nullptr, wanted, 0);
      if (count > 0)
        return Advance(count);
      // Not between these disks, not for this kind of file, or something else is the matter: reading and writing work
      // everywhere, and tell.
      mKernelCopies = false;
    }
    return CopyThroughBuffer(wanted);
  }

  std::uint64_t CopyThroughBuffer(std::uint64_t wanted) {
    mBuffer.resize(ChunkBytes);
    const ssize_t count = Retried([&] { return read(mSource, mBuffer.data(), wanted); });
    for (ssize_t written = 0; written < count;)
      written += Retried(
          [&] { return write(mDestination, mBuffer.data() + written, static_cast<std::size_t>(count - written)); });
    return Advance(count);
  }

  template <class Call> static ssize_t Retried(Call call) {
    for (;;) {
      const ssize_t count = call();
      if (count >= 0)
        return count;
      if (errno != EINTR)
        ThrowSystemError(errno);
    }
  }

  void Tell() const {
    if (mReport)
      mReport(mDone, mTotal);
  }

  std::uint64_t Advance(ssize_t count) {
    mDone += static_cast<std::uint64_t>(count);
    return static_cast<std::uint64_t>(count);
  }

  /// Has the disk begin with what was just copied, and waits for what it was given long ago.
  void WriteBack(std::uint64_t count) {
    SyncRange(mDone - count, count, SYNC_FILE_RANGE_WRITE);
    if (mDone > mWritten + UnwrittenBytes)
      AwaitChunk();
  }

  void AwaitWriteBack() {
    while (mWritten < mDone) {
      AwaitChunk();
      Tell();
    }
  }

  void AwaitChunk() {
    const std::uint64_t count = std::min(ChunkBytes, mDone - mWritten);
    SyncRange(mWritten, count, SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
    mWritten += count;
  }

  /// A failure of the disk that is told here is not told again by the flush.
  void SyncRange(std::uint64_t start, std::uint64_t count, unsigned flags) const {
    const int result = sync_file_range(mDestination, static_cast<off_t>(start), static_cast<off_t>(count), flags);
    if (result != 0 && errno != EINVAL && errno != ESPIPE && errno != ENOSYS)
      ThrowSystemError(errno);
  }

  int mSource;
  int mDestination;
  std::uint64_t mTotal;
  const FileCopier::Report &mReport;
  std::uint64_t mDone = 0;
  std::uint64_t mWritten = 0;
  bool mKernelCopies = true;
  std::vector<char> mBuffer;
};

} // namespace

std::uint64_t CopyContent(int source, int destination, std::uint64_t totalBytes, const FileCopier::Report &report) {
  return Copying(source, destination, totalBytes, report).Run();
}

} // namespace turfdesk
