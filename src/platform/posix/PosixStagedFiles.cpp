// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PosixStagedFiles.h"

#include "platform/posix/Abandoned.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdio>

namespace turfdesk {

namespace {

constexpr mode_t ReadWriteForAll = 0666;
constexpr mode_t AllForAll = 0777;

void Check(int result) {
  if (result != 0)
    ThrowSystemError(errno);
}

/// Disks made for other systems have no permissions to keep, and some set the time themselves.
void CheckWhereSupported(int result) {
  if (result != 0 && errno != EPERM && errno != EOPNOTSUPP)
    ThrowSystemError(errno);
}

/// Calls a routine (name -> is it done?) with names that no user's file has, until one is free.
template <class Make> std::string WithFreshName(Make make) {
  for (;;) {
    std::string name = FreshName(StagedFileNames);
    if (make(name.c_str()))
      return name;
    if (errno != EEXIST)
      ThrowSystemError(errno);
  }
}

} // namespace

Destination FindDestination(const PathMap &paths, std::string_view windowsPath, bool missingFolders) {
  PathMap::Place place;
  if (const int error = paths.FindPlace(windowsPath, missingFolders, place); error != 0)
    ThrowSystemError(error);
  Destination destination{std::move(place.folder), std::move(place.name), std::nullopt};
  struct stat status;
  if (lstat(destination.Path().c_str(), &status) == 0)
    destination.existing = status;
  return destination;
}

NewFolders::~NewFolders() {
  for (; !mFolders.empty(); mFolders.pop_back())
    rmdir(mFolders.back().c_str());
}

void NewFolders::Make(const std::string &folder) {
  if (const int error = MakeFolders(folder, AllForAll, &mFolders); error != 0)
    ThrowFolderError(error);
}

PosixStagedFile::PosixStagedFile(Destination destination, bool makeFolders, mode_t mode,
                                 SweepTimes<std::string> &sweeps)
    : mDestination(std::move(destination)) {
  // Sooner or later such a file would be taken for one that was left behind.
  if (StagedFileNames.Include(mDestination.name))
    ThrowSystemError(EILSEQ);
  if (makeFolders)
    mNewFolders.Make(mDestination.folder);
  mFolder = Descriptor(open(mDestination.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!mFolder.IsOpen())
    ThrowFolderError(errno);
  CheckReplaceable();
  if (sweeps.IsDue(mDestination.folder))
    RemoveAbandoned(mDestination.folder, StagedFileNames, S_IFREG);
  OpenTemporary(mode);
  LockAgainstRemoval(mFile);
}

PosixStagedFile::~PosixStagedFile() {
  if (!mTemporaryName.empty())
    unlinkat(mFolder.Number(), mTemporaryName.c_str(), 0);
}

/// A file without its owner's write permission is not replaced, not even for root, nor is a folder, a link to one, a
/// device or a pipe.
void PosixStagedFile::CheckReplaceable() const {
  struct stat status;
  const auto look = [&](int flags) {
    return fstatat(mFolder.Number(), mDestination.name.c_str(), &status, flags) == 0 ? 0 : errno;
  };
  if (const int error = look(AT_SYMLINK_NOFOLLOW); error != 0) {
    if (error != ENOENT)
      ThrowSystemError(error);
    return;
  }
  const bool isReplaceable = S_ISLNK(status.st_mode) ? look(0) != 0 || !S_ISDIR(status.st_mode)
                                                     : S_ISREG(status.st_mode) && (status.st_mode & S_IWUSR) != 0;
  if (!isReplaceable)
    ThrowSystemError(EACCES);
}

void PosixStagedFile::OpenTemporary(mode_t mode) {
  mFile = Descriptor(openat(mFolder.Number(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
  if (mFile.IsOpen())
    return;
  // Whether the disk cannot do that or something else is the matter, the ordinary way will tell.
  mTemporaryName = WithFreshName([this, mode](const char *name) {
    mFile = Descriptor(openat(mFolder.Number(), name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode));
    return mFile.IsOpen();
  });
  mLeftover.Note(mDestination.folder + "/" + mTemporaryName);
}

void PosixStagedFile::Write(std::span<const std::uint8_t> data) {
  while (!data.empty()) {
    const ssize_t count = pwrite(mFile.Number(), data.data(), data.size(), static_cast<off_t>(mPosition));
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      ThrowSystemError(errno);
    mPosition += static_cast<std::uint64_t>(count);
    data = data.subspan(static_cast<std::size_t>(count));
  }
}

void PosixStagedFile::SetAttributes() const {
  // Those of a link mean nothing, and with those of a stranger's file he could write to ours.
  const auto &existing = mDestination.existing;
  if (existing && S_ISREG(existing->st_mode) && existing->st_uid == geteuid())
    CheckWhereSupported(fchmod(mFile.Number(), existing->st_mode & AllForAll));
  if (mModified) {
    const timespec times[] = {{0, UTIME_OMIT}, *mModified};
    CheckWhereSupported(futimens(mFile.Number(), times));
  }
}

void PosixStagedFile::GiveTemporaryName() {
  const std::string file = "/proc/self/fd/" + std::to_string(mFile.Number());
  mTemporaryName = WithFreshName([this, &file](const char *name) {
    return linkat(AT_FDCWD, file.c_str(), mFolder.Number(), name, AT_SYMLINK_FOLLOW) == 0;
  });
}

void PosixStagedFile::Flush() {
  SetAttributes();
  Check(fsync(mFile.Number()));
  mIsFlushed = true;
}

void PosixStagedFile::Finish(bool flush, bool setAside) {
  if (!mIsFlushed)
    flush ? Flush() : SetAttributes();
  CheckReplaceable();
  if (mTemporaryName.empty())
    GiveTemporaryName();
  // A disk in the network may tell only at a close that it is full. The file itself stays open, since its lock goes
  // with it.
  Check(close(dup(mFile.Number())));
  if (setAside)
    SetAside();
  if (renameat(mFolder.Number(), mTemporaryName.c_str(), mFolder.Number(), mDestination.name.c_str()) != 0) {
    const int error = errno;
    if (HasReplaced())
      TakeBack();
    ThrowSystemError(error);
  }
  mTemporaryName.clear();
  mLeftover.Forget();
  if (flush)
    FlushFolder();
}

/// By a second name where the disk knows such, so that there is no moment without a file of the first.
void PosixStagedFile::SetAside() {
  constexpr std::size_t longestName = 255;
  const int folder = mFolder.Number();
  const char *name = mDestination.name.c_str();
  struct stat status;
  if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
    return;
  std::string aside;
  do {
    aside = FreshName(SetAsideNames);
    // A name of which a part was cut off would not tell where the file belongs.
    if (const std::string ownName = "-" + mDestination.name; aside.size() + ownName.size() <= longestName)
      aside += ownName;
  } while (fstatat(folder, aside.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0);
  if (linkat(folder, name, folder, aside.c_str(), 0) != 0)
    Check(renameat(folder, name, folder, aside.c_str()));
  mSetAsideName = std::move(aside);
}

void PosixStagedFile::Keep() noexcept {
  if (HasReplaced())
    unlinkat(mFolder.Number(), mSetAsideName.c_str(), 0);
  mSetAsideName.clear();
}

void PosixStagedFile::TakeBack() {
  const int folder = mFolder.Number();
  const char *name = mDestination.name.c_str();
  struct stat own;
  struct stat present;
  struct stat aside;
  const bool isThere = fstatat(folder, name, &present, AT_SYMLINK_NOFOLLOW) == 0;
  const bool isOwn = isThere && fstat(mFile.Number(), &own) == 0 && IsSameFile(own, present);
  if (!HasReplaced()) {
    Check(isOwn ? unlinkat(folder, name, 0) : 0);
    return;
  }
  Check(fstatat(folder, mSetAsideName.c_str(), &aside, AT_SYMLINK_NOFOLLOW));
  // What another program has put there meanwhile is not ours to replace.
  if (isThere && !isOwn && !IsSameFile(aside, present))
    ThrowSystemError(EEXIST);
  // Of two names of one file a rename would leave both.
  const bool stillHasName = isThere && IsSameFile(aside, present);
  Check(stillHasName ? unlinkat(folder, mSetAsideName.c_str(), 0)
                     : renameat(folder, mSetAsideName.c_str(), folder, name));
  mSetAsideName.clear();
  fsync(folder);
}

void PosixStagedFile::FlushFolder() {
  // What cannot flush a folder has nothing in it to flush.
  if (fsync(mFolder.Number()) == 0 || errno == EINVAL)
    return;
  const int error = errno;
  // Whoever is told of a failure expects what was there.
  if (HasReplaced())
    TakeBack();
  else if (!mDestination.existing)
    unlinkat(mFolder.Number(), mDestination.name.c_str(), 0);
  ThrowSystemError(error);
}

std::unique_ptr<StagedFile> PosixStagedFiles::Create(std::string_view destination, bool makeFolders) {
  return std::make_unique<PosixStagedFile>(FindDestination(mPaths, destination, makeFolders), makeFolders,
                                           ReadWriteForAll, mSweeps);
}

bool PosixStagedFiles::IsSameFile(std::string_view first, std::string_view second) {
  const auto look = [this](std::string_view path, struct stat &status) {
    return mPaths.Reach(path, [&status](const char *hostPath) { return stat(hostPath, &status) == 0 ? 0 : errno; }) ==
           0;
  };
  struct stat left;
  struct stat right;
  return look(first, left) && look(second, right) && turfdesk::IsSameFile(left, right);
}

std::uint64_t PosixStagedFiles::FreeBytes(std::string_view folder) {
  struct statvfs status;
  const int error =
      mPaths.Reach(folder, [&status](const char *hostPath) { return statvfs(hostPath, &status) == 0 ? 0 : errno; });
  if (error != 0)
    ThrowFolderError(error);
  return std::uint64_t{status.f_bavail} * status.f_frsize;
}

} // namespace turfdesk
