// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/TempFolder.h"

#include "platform/posix/Abandoned.h"
#include "platform/posix/Leftovers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <vector>

namespace turfdesk {

namespace {

void RemoveWithContents(const std::string &folder) {
  std::error_code error;
  std::filesystem::remove_all(folder, error);
}

Descriptor Lock(const std::string &folder) {
  Descriptor lock(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  return LockAgainstRemoval(lock) ? std::move(lock) : Descriptor();
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

  void Add(const std::string &path) {
    mFolders.push_back({getpid(), path, Lock(path), {}});
    mFolders.back().leftover.Note(path);
  }

private:
  struct OwnedFolder {
    pid_t owner;
    std::string path;
    Descriptor lock;
    Leftover leftover;
  };
  std::vector<OwnedFolder> mFolders;
};

} // namespace

std::string MakeTempFolder(const std::string &parent) {
  static FoldersToRemove foldersToRemove;
  RemoveAbandoned(parent, TempFolderNames, S_IFDIR);
  for (;;) {
    std::string path = parent + "/" + FreshName(TempFolderNames);
    if (mkdir(path.c_str(), S_IRWXU) == 0) {
      foldersToRemove.Add(path);
      return path;
    }
    if (errno != EEXIST)
      return "";
  }
}

} // namespace turfdesk
