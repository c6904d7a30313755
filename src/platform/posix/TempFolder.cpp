// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/TempFolder.h"

#include "platform/posix/Descriptor.h"
#include "platform/posix/FolderEntries.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <vector>

namespace turfdesk {

namespace {

constexpr std::string_view NameBeginning = "turfdesk-temp-";

/// Longer than it takes to lock a folder that was just made.
constexpr time_t AbandonedAfterSeconds = 60;

void RemoveWithContents(const std::string &folder) {
  std::error_code error;
  std::filesystem::remove_all(folder, error);
}

/// Each process holds a lock on its folders. The kernel lets go of it when the process ends, however it ends.
Descriptor Lock(const std::string &folder) {
  Descriptor lock(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  return flock(lock.Number(), LOCK_EX | LOCK_NB) == 0 ? std::move(lock) : Descriptor();
}

bool CanBeAbandoned(const std::string &folder) {
  struct stat status;
  return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && (status.st_mode & 0777) == 0700 &&
         status.st_uid == geteuid() && status.st_mtime + AbandonedAfterSeconds < std::time(nullptr);
}

void RemoveAbandonedFolders(const std::string &parent) {
  ForEachEntry(parent, [&parent](const dirent &entry) {
    const std::string folder = parent + "/" + entry.d_name;
    if (!std::string_view(entry.d_name).starts_with(NameBeginning) || !CanBeAbandoned(folder))
      return;
    if (const Descriptor lock = Lock(folder); lock.IsOpen())
      RemoveWithContents(folder);
  });
}

/// Lives to the end of the process, so that a call of exit from anywhere cleans up.
class FoldersToRemove {
public:
  FoldersToRemove() = default;
  FoldersToRemove(const FoldersToRemove &) = delete;
  FoldersToRemove &operator=(const FoldersToRemove &) = delete;
  ~FoldersToRemove() {
    for (const OwnedFolder &folder : mFolders)
      if (folder.owner == getpid())
        RemoveWithContents(folder.path);
  }

  void Add(const std::string &path) { mFolders.push_back({getpid(), path, Lock(path)}); }

private:
  struct OwnedFolder {
    pid_t owner;
    std::string path;
    Descriptor lock;
  };
  std::vector<OwnedFolder> mFolders;
};

} // namespace

std::string MakeTempFolder(const std::string &parent) {
  static FoldersToRemove foldersToRemove;
  RemoveAbandonedFolders(parent);
  std::string path = parent + "/" + std::string(NameBeginning) + "XXXXXX";
  if (mkdtemp(path.data()) == nullptr)
    return "";
  foldersToRemove.Add(path);
  return path;
}

} // namespace turfdesk
