// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/Abandoned.h"

#include "platform/windows/FileFacts.h"
#include "platform/windows/FolderEntries.h"
#include "platform/windows/SystemHandle.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <random>

namespace turfdesk {

namespace {

/// Longer than it takes to open a folder that was just made, or, on a disk of the network whose files others can open
/// nevertheless, between two writes.
constexpr std::uint64_t AbandonedAfterTicks = 60 * TicksPerSecond;

std::uint64_t Now() {
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  return std::uint64_t{now.dwHighDateTime} << 32U | now.dwLowDateTime;
}

bool IsLink(const FolderEntry &entry) { return (entry.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }
bool IsFolder(const FolderEntry &entry) { return (entry.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

void RemoveEntry(const std::wstring &path, const FolderEntry &entry) {
  if ((entry.attributes & FILE_ATTRIBUTE_READONLY) != 0)
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (!IsFolder(entry))
    DeleteFileW(path.c_str());
  else if (IsLink(entry))
    RemoveDirectoryW(path.c_str());
  else
    RemoveWithContents(path);
}

bool IsInUse(const std::wstring &path) {
  SystemHandle handle;
  return OpenExisting(path, DELETE, 0, handle) != 0;
}

/// A file that was set aside comes back where its name is free: whoever had set it aside has not come to replace it.
/// Otherwise it stays, for nobody knows whether it is missed.
void BringBack(const std::wstring &folder, const std::wstring &setAside, const std::wstring &oldName) {
  const std::wstring path = EntryPath(folder, setAside);
  const std::wstring oldPath = EntryPath(folder, oldName);
  if (GetFileAttributesW(oldPath.c_str()) != INVALID_FILE_ATTRIBUTES || GetLastError() != ERROR_FILE_NOT_FOUND)
    return;
  MoveFileExW(path.c_str(), oldPath.c_str(), 0);
}

} // namespace

std::wstring FreshName(const TemporaryNames &names) {
  constexpr std::wstring_view letters = L"abcdefghijklmnopqrstuvwxyz234567";
  std::random_device random;
  std::wstring name = ToWide(names.beginning);
  for (std::size_t i = 0; i < TemporaryNames::RandomLength; ++i)
    name += letters[random() % letters.size()];
  return name + ToWide(names.end);
}

void RemoveWithContents(const std::wstring &folder) {
  ForEachEntry(folder, [&folder](const FolderEntry &entry) { RemoveEntry(EntryPath(folder, entry.name), entry); });
  RemoveDirectoryW(folder.c_str());
}

void RemoveAbandoned(const std::wstring &folder, const TemporaryNames &names, TemporaryKind kind) {
  ForEachEntry(folder, [&](const FolderEntry &entry) {
    if (const auto oldName = NameBeforeSetAside(ToUtf8(entry.name)); oldName && kind == TemporaryKind::Files) {
      BringBack(folder, entry.name, ToWide(*oldName));
      return;
    }
    const bool isOfKind = IsFolder(entry) == (kind == TemporaryKind::Folders) && !IsLink(entry);
    if (!isOfKind || !names.Include(ToUtf8(entry.name)) || entry.modified + AbandonedAfterTicks > Now())
      return;
    const std::wstring path = EntryPath(folder, entry.name);
    if (!IsInUse(path))
      RemoveEntry(path, entry);
  });
}

} // namespace turfdesk
