// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/Abandoned.h"

#include "platform/windows/FileFacts.h"
#include "platform/windows/FolderEntries.h"
#include "platform/windows/SystemHandle.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>
#include <array>
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

/// Nobody can rename, delete or replace the folder while it is held: others may write where temporary files lie, and a
/// junction put in the folder's place would lead the sweep, perhaps an administrator's, out of it. Nothing where there
/// is a link already.
SystemHandle HoldFolder(const std::wstring &folder) {
  SystemHandle handle;
  constexpr std::uint32_t flags = FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT;
  FILE_BASIC_INFO facts = {};
  if (OpenExisting(folder, FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, handle, flags) != 0 ||
      GetFileInformationByHandleEx(handle.Get(), FileBasicInfo, &facts, sizeof(facts)) == 0 ||
      (facts.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
    return {};
  return handle;
}

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

/// From before a file is set aside until its name is taken, the new file is open under its temporary name.
bool IsSomebodyReplacing(const std::wstring &folder) {
  bool found = false;
  ForEachEntry(folder, [&](const FolderEntry &entry) {
    found = found || (StagedFileNames.Include(ToUtf8(entry.name)) && IsInUse(EntryPath(folder, entry.name)));
  });
  return found;
}

/// A file that was set aside comes back where its name is free: whoever had set it aside has not come to replace it.
/// Otherwise it stays, for nobody knows whether it is missed, unless it still has its old name as well.
void BringBack(const std::wstring &folder, const std::wstring &setAside, const std::wstring &oldName) {
  if (IsSomebodyReplacing(folder))
    return;
  const std::wstring path = EntryPath(folder, setAside);
  const std::wstring oldPath = EntryPath(folder, oldName);
  FileFacts aside;
  FileFacts present;
  if (LookAt(ToUtf8(PlainPath(oldPath)), present) == 0) {
    if (LookAt(ToUtf8(PlainPath(path)), aside) == 0 && aside.IsSameFile(present))
      DeleteFileW(path.c_str());
  } else if (GetFileAttributesW(oldPath.c_str()) == INVALID_FILE_ATTRIBUTES && GetLastError() == ERROR_FILE_NOT_FOUND) {
    MoveFileExW(path.c_str(), oldPath.c_str(), 0);
  }
}

} // namespace

std::wstring FreshName(const TemporaryNames &names) {
  std::random_device device;
  std::array<std::uint8_t, TemporaryNames::RandomLength> random;
  std::ranges::generate(random, [&device] { return static_cast<std::uint8_t>(device()); });
  return ToWide(names.Name(random));
}

void RemoveWithContents(const std::wstring &folder) {
  if (const SystemHandle held = HoldFolder(folder); held.IsOpen())
    ForEachEntry(folder, [&folder](const FolderEntry &entry) { RemoveEntry(EntryPath(folder, entry.name), entry); });
  // Of a link that has come in the folder's place meanwhile, this removes the link.
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
