// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PosixFileCopier.h"

#include "platform/posix/ContentCopy.h"
#include "platform/posix/PosixStagedFiles.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>

namespace turfdesk {

namespace {

constexpr mode_t ReadWriteExecuteForAll = 0777;

struct SourceFile {
  Descriptor file;
  struct stat status;
};

/// Looks before it opens: to open a device can be a deed of its own.
int OpenRegularFile(const char *hostPath, SourceFile &source) {
  if (stat(hostPath, &source.status) != 0)
    return errno;
  if (!S_ISREG(source.status.st_mode))
    return EACCES;
  source.file = Descriptor(open(hostPath, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  return source.file.IsOpen() && fstat(source.file.Number(), &source.status) == 0 ? 0 : errno;
}

class PosixStagedCopy final : public StagedCopy {
public:
  PosixStagedCopy(const PathMap &paths, std::unique_ptr<PosixStagedFile> file)
      : mPaths(paths), mFile(std::move(file)) {}

  void Place() override { mFile->Place(); }
  bool HasReplaced() const override { return mFile->HasReplaced(); }
  void Keep() noexcept override { mFile->Keep(); }
  void TakeBack() override { mFile->TakeBack(); }
  std::string SetAsidePath() const override { return mPaths.ToWindows(mFile->SetAsidePath()); }

private:
  const PathMap &mPaths;
  std::unique_ptr<PosixStagedFile> mFile;
};

bool HasChanged(const SourceFile &source) {
  struct stat now;
  if (fstat(source.file.Number(), &now) != 0)
    ThrowSystemError(errno);
  const timespec &before = source.status.st_mtim;
  return now.st_size != source.status.st_size || now.st_mtim.tv_sec != before.tv_sec ||
         now.st_mtim.tv_nsec != before.tv_nsec;
}

} // namespace

std::unique_ptr<StagedCopy> PosixFileCopier::Stage(std::string_view sourcePath, std::string_view destinationPath,
                                                   const Report &report) {
  SourceFile source;
  const int error =
      mPaths.Reach(sourcePath, [&source](const char *hostPath) { return OpenRegularFile(hostPath, source); });
  if (error != 0)
    ThrowSystemError(error);

  Destination destination = FindDestination(mPaths, destinationPath, false);
  // Also by a link to the source: whoever moves the file would delete it next.
  struct stat existing;
  if (stat(destination.Path().c_str(), &existing) == 0 && IsSameFile(source.status, existing))
    throw RuntimeError(ErrorNumber::PermissionDenied);

  const mode_t mode = (source.status.st_mode & ReadWriteExecuteForAll) | S_IRUSR | S_IWUSR;
  auto staged = std::make_unique<PosixStagedFile>(std::move(destination), false, mode, mSweeps);
  const auto size = static_cast<std::uint64_t>(source.status.st_size);
  const std::uint64_t copied = CopyContent(source.file.Number(), staged->FileNumber(), size, report);
  if (copied != size || HasChanged(source))
    throw RuntimeError(ErrorNumber::PermissionDenied);
  staged->KeepTime(source.status.st_mtim);
  staged->Flush();
  return std::make_unique<PosixStagedCopy>(mPaths, std::move(staged));
}

} // namespace turfdesk
