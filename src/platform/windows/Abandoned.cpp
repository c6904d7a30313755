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

} // namespace

std::wstring FreshName(const TemporaryNames &names) {
  std::random_device device;
  std::array<std::uint8_t, TemporaryNames::RandomLength> random;
  std::ranges::generate(random, [&device] { return static_cast<std::uint8_t>(device()); });
  return ToWide(names.Name(random));
}

void RemoveWithContents(const std::wstring &folder) {
  ForEachEntry(folder, [&folder](const FolderEntry &entry) { RemoveEntry(EntryPath(folder, entry.name), entry); });
  RemoveDirectoryW(folder.c_str());
}

void RemoveAbandoned(const std::wstring &folder, const TemporaryNames &names, TemporaryKind kind) {
  ForEachEntry(folder, [&](const FolderEntry &entry) {
    const bool isOfKind = IsFolder(entry) == (kind == TemporaryKind::Folders) && !IsLink(entry);
    if (!isOfKind || !names.Include(ToUtf8(entry.name)) || entry.modified + AbandonedAfterTicks > Now())
      return;
    const std::wstring path = EntryPath(folder, entry.name);
    if (!IsInUse(path))
      RemoveEntry(path, entry);
  });
}

} // namespace turfdesk
