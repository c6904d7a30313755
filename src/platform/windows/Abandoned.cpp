// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/Abandoned.h"

#include "platform/windows/FileFacts.h"
#include "platform/windows/FolderEntries.h"
#include "platform/windows/SystemHandle.h"
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

bool IsLink(std::uint32_t attributes) { return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }
bool IsFolder(std::uint32_t attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

/// The path that an open file or folder has at this moment, all links in it resolved; "" when it cannot be told.
std::wstring PathOfOpen(const SystemHandle &file) {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = GetFinalPathNameByHandleW(file.Get(), path.data(), static_cast<DWORD>(path.size()), 0);
  if (length > path.size()) {
    path.resize(length);
    length = GetFinalPathNameByHandleW(file.Get(), path.data(), static_cast<DWORD>(path.size()), 0);
  }
  path.resize(length < path.size() ? length : 0);
  return path;
}

/// Opens a file, folder or link, and not what a link leads to. Nobody can delete it, rename it or put something else in
/// its place while it is open.
SystemHandle OpenForRemoval(const std::wstring &path) {
  constexpr DWORD access = DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES;
  constexpr DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT;
  return SystemHandle(CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, OPEN_EXISTING, flags, nullptr));
}

/// Removes what is open, with all that it holds.
///
/// A folder for temporary files may be open to others, who might put a link in the place of a folder while this one
/// goes through it. So what is removed is what was opened, and that only where the disk says that it lies in its
/// folder.
void RemoveOpen(const SystemHandle &opened, const std::wstring &path) {
  FILE_BASIC_INFO facts = {};
  const std::wstring place = PathOfOpen(opened);
  if (place.empty() || GetFileInformationByHandleEx(opened.Get(), FileBasicInfo, &facts, sizeof(facts)) == 0)
    return;
  if (IsFolder(facts.FileAttributes) && !IsLink(facts.FileAttributes))
    ForEachEntry(path, [&](const FolderEntry &entry) {
      const std::wstring entryPath = EntryPath(path, entry.name);
      if (const SystemHandle inner = OpenForRemoval(entryPath); PathOfOpen(inner) == EntryPath(place, entry.name))
        RemoveOpen(inner, entryPath);
    });
  if ((facts.FileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
    facts.FileAttributes = FILE_ATTRIBUTE_NORMAL;
    SetFileInformationByHandle(opened.Get(), FileBasicInfo, &facts, sizeof(facts));
  }
  FILE_DISPOSITION_INFO disposition = {TRUE};
  SetFileInformationByHandle(opened.Get(), FileDispositionInfo, &disposition, sizeof(disposition));
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
  std::random_device device;
  std::array<std::uint8_t, TemporaryNames::RandomLength> random;
  std::ranges::generate(random, [&device] { return static_cast<std::uint8_t>(device()); });
  return ToWide(names.Name(random));
}

void RemoveWithContents(const std::wstring &folder) {
  if (const SystemHandle opened = OpenForRemoval(folder); opened.IsOpen())
    RemoveOpen(opened, folder);
}

void RemoveAbandoned(const std::wstring &folder, const TemporaryNames &names, TemporaryKind kind) {
  ForEachEntry(folder, [&](const FolderEntry &entry) {
    if (const auto oldName = NameBeforeSetAside(ToUtf8(entry.name)); oldName && kind == TemporaryKind::Files) {
      BringBack(folder, entry.name, ToWide(*oldName));
      return;
    }
    const bool isOfKind = IsFolder(entry.attributes) == (kind == TemporaryKind::Folders) && !IsLink(entry.attributes);
    if (isOfKind && names.Include(ToUtf8(entry.name)) && entry.modified + AbandonedAfterTicks <= Now())
      RemoveWithContents(EntryPath(folder, entry.name));
  });
}

} // namespace turfdesk
