// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/TempFolder.h"

#include "platform/windows/Abandoned.h"
#include "platform/windows/FolderEntries.h"
#include "platform/windows/SystemHandle.h"

#include <windows.h>

#include <mutex>
#include <utility>
#include <vector>

namespace turfdesk {

namespace {

/// Lives to the end of the process, so that a call of exit from anywhere cleans up.
class FoldersToRemove {
public:
  FoldersToRemove() = default;
  FoldersToRemove(const FoldersToRemove &) = delete;
  FoldersToRemove &operator=(const FoldersToRemove &) = delete;
  ~FoldersToRemove() { Remove(); }

  void Add(const std::wstring &path) {
    SystemHandle lock;
    OpenExisting(path, FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, lock);
    const std::lock_guard guard(mMutex);
    mFolders.emplace_back(path, std::move(lock));
  }

  bool Remove() {
    const std::lock_guard guard(mMutex);
    std::erase_if(mFolders, [](auto &folder) {
      folder.second = SystemHandle();
      RemoveWithContents(folder.first);
      return GetFileAttributesW(folder.first.c_str()) == INVALID_FILE_ATTRIBUTES;
    });
    return mFolders.empty();
  }

private:
  std::mutex mMutex;
  std::vector<std::pair<std::wstring, SystemHandle>> mFolders;
};

FoldersToRemove &Folders() {
  static FoldersToRemove folders;
  return folders;
}

} // namespace

bool RemoveTempFolders() { return Folders().Remove(); }

std::wstring MakeTempFolder(const std::wstring &parent) {
  Folders();
  RemoveAbandoned(parent, TempFolderNames, TemporaryKind::Folders);
  for (;;) {
    std::wstring path = EntryPath(parent, FreshName(TempFolderNames));
    if (CreateDirectoryW(path.c_str(), nullptr) != 0) {
      Folders().Add(path);
      return path;
    }
    if (GetLastError() != ERROR_ALREADY_EXISTS)
      return L"";
  }
}

} // namespace turfdesk
