// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/TempFolder.h"

#include "platform/windows/Abandoned.h"
#include "platform/windows/FolderEntries.h"
#include "platform/windows/SystemHandle.h"

#include <windows.h>

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
  ~FoldersToRemove() {
    for (auto &[path, lock] : mFolders) {
      lock = SystemHandle();
      RemoveWithContents(path);
    }
  }

  void Add(const std::wstring &path) {
    SystemHandle lock;
    OpenExisting(path, FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, lock);
    mFolders.emplace_back(path, std::move(lock));
  }

private:
  std::vector<std::pair<std::wstring, SystemHandle>> mFolders;
};

} // namespace

std::wstring MakeTempFolder(const std::wstring &parent) {
  static FoldersToRemove foldersToRemove;
  RemoveAbandoned(parent, TempFolderNames, TemporaryKind::Folders);
  for (;;) {
    std::wstring path = EntryPath(parent, FreshName(TempFolderNames));
    if (CreateDirectoryW(path.c_str(), nullptr) != 0) {
      foldersToRemove.Add(path);
      return path;
    }
    if (GetLastError() != ERROR_ALREADY_EXISTS)
      return L"";
  }
}

} // namespace turfdesk
