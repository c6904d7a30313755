// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/NewFolders.h"

#include "platform/windows/SystemPath.h"

#include <windows.h>

namespace turfdesk {

NewFolders::~NewFolders() {
  for (; !mFolders.empty(); mFolders.pop_back())
    RemoveDirectoryW(mFolders.back().c_str());
}

std::uint32_t NewFolders::Make(const std::wstring &folder) {
  std::vector<std::wstring> missing;
  for (std::wstring path = folder; GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES && !IsRoot(path);
       path.resize(path.rfind(L'\\')))
    missing.push_back(path);
  for (; !missing.empty(); missing.pop_back()) {
    const std::wstring &path = missing.back();
    if (CreateDirectoryW(path.c_str(), nullptr) != 0)
      mFolders.push_back(path);
    else if (const DWORD error = GetLastError(); error != ERROR_ALREADY_EXISTS)
      return WhatIsMissing(error, path);
  }
  return 0;
}

} // namespace turfdesk
