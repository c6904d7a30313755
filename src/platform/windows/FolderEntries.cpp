// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/FolderEntries.h"

#include "platform/windows/SystemPath.h"

#include <windows.h>

#include <memory>

namespace turfdesk {

namespace {

struct SearchCloser {
  void operator()(void *search) const { FindClose(search); }
};
using Search = std::unique_ptr<void, SearchCloser>;

Search FindFirst(const std::wstring &pattern, WIN32_FIND_DATAW &found) {
  void *search = FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0);
  return Search(search == INVALID_HANDLE_VALUE ? nullptr : search);
}

FolderEntry EntryOf(const WIN32_FIND_DATAW &found) {
  const FILETIME &time = found.ftLastWriteTime;
  return {found.cFileName, found.dwFileAttributes, std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime};
}

/// Why nothing at all was found. A root without entries is told as a missing file.
std::uint32_t WhyEmpty(std::uint32_t error, const std::wstring &folder) {
  const DWORD attributes = GetFileAttributesW(folder.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES)
    return WhatIsMissing(error, folder);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
    return ERROR_DIRECTORY;
  return error == ERROR_FILE_NOT_FOUND ? 0 : error;
}

Search FindFirstIn(const std::wstring &folder, WIN32_FIND_DATAW &found) {
  return FindFirst(EntryPath(folder, L"*"), found);
}

} // namespace

std::uint32_t CheckReadable(const std::wstring &folder) {
  WIN32_FIND_DATAW found;
  return FindFirstIn(folder, found) ? 0 : WhyEmpty(GetLastError(), folder);
}

std::uint32_t ForEachEntry(const std::wstring &folder, const std::function<void(const FolderEntry &)> &call) {
  WIN32_FIND_DATAW found;
  const Search search = FindFirstIn(folder, found);
  if (!search)
    return WhyEmpty(GetLastError(), folder);
  do {
    const FolderEntry entry = EntryOf(found);
    if (entry.name != L"." && entry.name != L"..")
      call(entry);
  } while (FindNextFileW(search.get(), &found) != 0);
  const DWORD error = GetLastError();
  return error == ERROR_NO_MORE_FILES ? 0 : error;
}

std::wstring NameOnDisk(const std::wstring &systemPath) {
  WIN32_FIND_DATAW found;
  return FindFirst(systemPath, found) ? found.cFileName : L"";
}

std::wstring EntryPath(const std::wstring &folder, const std::wstring &name) {
  return folder + (folder.ends_with(L'\\') ? L"" : L"\\") + name;
}

} // namespace turfdesk
