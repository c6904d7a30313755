// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/Abandoned.h"

#include "platform/posix/FolderEntries.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace turfdesk {

namespace {

/// Longer than it takes to lock what was just made.
constexpr time_t AbandonedAfterSeconds = 60;

bool CanBeAbandoned(const std::string &path, mode_t type) {
  struct stat status;
  if (lstat(path.c_str(), &status) != 0 || (status.st_mode & S_IFMT) != type || status.st_uid != geteuid())
    return false;
  const bool isOurs = type != S_IFDIR || (status.st_mode & 0777) == 0700;
  return isOurs && status.st_mtime + AbandonedAfterSeconds < std::time(nullptr);
}

/// A file that was set aside comes back where its name is free: whoever had set it aside has not come to replace it.
/// Otherwise it stays, for nobody knows whether it is missed, unless it still has its old name as well.
void BringBack(const std::string &folder, const std::string &setAside, const std::string &oldName) {
  const std::string path = folder + "/" + setAside;
  const std::string oldPath = folder + "/" + oldName;
  struct stat status;
  struct stat old;
  if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != geteuid() ||
      status.st_ctime + AbandonedAfterSeconds >= std::time(nullptr))
    return;
  if (lstat(oldPath.c_str(), &old) != 0)
    renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, oldPath.c_str(), RENAME_NOREPLACE);
  else if (IsSameFile(old, status))
    unlink(path.c_str());
}

} // namespace

std::string FreshName(const TemporaryNames &names) {
  std::array<std::uint8_t, TemporaryNames::RandomLength> random;
  if (getrandom(random.data(), random.size(), 0) != static_cast<ssize_t>(random.size()))
    ThrowSystemError(errno);
  return names.Name(random);
}

bool LockAgainstRemoval(const Descriptor &file) { return flock(file.Number(), LOCK_EX | LOCK_NB) == 0; }

void RemoveAbandoned(const std::string &folder, const TemporaryNames &names, mode_t type) {
  ForEachEntry(folder, [&](const dirent &entry) {
    if (const auto oldName = type == S_IFREG ? NameBeforeSetAside(entry.d_name) : std::nullopt) {
      BringBack(folder, entry.d_name, *oldName);
      return;
    }
    if (!names.Include(entry.d_name))
      return;
    const std::string path = folder + "/" + entry.d_name;
    if (!CanBeAbandoned(path, type))
      return;
    // Some disks lock only what is open for writing, which a folder never is.
    const int access = type == S_IFREG ? O_RDWR : O_RDONLY;
    const Descriptor lock(open(path.c_str(), access | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    std::error_code error;
    if (LockAgainstRemoval(lock))
      std::filesystem::remove_all(path, error);
  });
}

} // namespace turfdesk
