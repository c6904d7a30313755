// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsFolderReader.h"

#include "platform/NameOrder.h"
#include "platform/NamePatterns.h"
#include "platform/WindowsNames.h"
#include "platform/windows/FolderEntries.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <functional>
#include <optional>
#include <utility>

namespace turfdesk {

namespace {

/// A list tells apart a missing drive, one that is not ready, a missing folder and one without access.
[[noreturn]] void ThrowListError(std::uint32_t error) {
  switch (NumberOfSystemError(error)) {
  case ErrorNumber::DeviceIo:
    throw RuntimeError(ErrorNumber::DiskNotReady);
  case ErrorNumber::BadFileName:
    throw RuntimeError(ErrorNumber::PathNotFound);
  default:
    ThrowFolderError(error);
  }
}

/// In UTF-8, unless no path can express it: the disk's names need not be sound UTF-16.
std::optional<std::string> NameOf(const FolderEntry &entry) {
  std::string name = ToUtf8(entry.name);
  if (!IsWindowsNameOfAnyLength(name) || ToWide(name) != entry.name)
    return std::nullopt;
  return name;
}

enum class Kind { Folder, File };

/// Names of that kind, sorted.
template <class Accept> std::vector<std::string> Names(std::string_view folder, Kind kind, Accept accept) {
  std::vector<std::string> names;
  std::wstring systemPath;
  std::uint32_t error = ToSystemPath(folder, systemPath);
  if (error == 0)
    error = ForEachEntry(systemPath, [&](const FolderEntry &entry) {
      const bool isFolder = (entry.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
      if (isFolder != (kind == Kind::Folder) || (entry.attributes & FILE_ATTRIBUTE_HIDDEN) != 0)
        return;
      if (std::optional<std::string> name = NameOf(entry); name && accept(*name))
        names.push_back(std::move(*name));
    });
  if (error != 0)
    ThrowListError(error);
  SortForPeople(names, std::identity());
  return names;
}

/// The system path with each name as the disk has it.
std::wstring WithNamesOnDisk(const std::wstring &systemPath) {
  if (IsRoot(systemPath))
    return systemPath;
  const std::size_t separator = systemPath.rfind(L'\\');
  std::wstring name = NameOnDisk(systemPath);
  // A folder whose own folder may not be listed has the name that was given.
  if (name.empty())
    name = systemPath.substr(separator + 1);
  return EntryPath(WithNamesOnDisk(systemPath.substr(0, separator)), name);
}

/// Gives 0 and the folder's canonical path, or the system's number of what keeps it from being read.
std::uint32_t FindFolder(std::string_view folder, std::string &canonical) {
  std::wstring systemPath;
  if (const std::uint32_t error = ToSystemPath(folder, systemPath); error != 0)
    return error;
  if (const std::uint32_t error = CheckReadable(systemPath); error != 0)
    return error;
  canonical = ToUtf8(PlainPath(WithNamesOnDisk(systemPath)));
  return 0;
}

} // namespace

std::vector<std::string> WindowsFolderReader::Drives() {
  std::vector<std::string> names;
  const DWORD drives = GetLogicalDrives();
  for (char letter = 'A'; letter <= 'Z'; ++letter)
    if ((drives >> static_cast<unsigned>(letter - 'A') & 1U) != 0)
      names.push_back({letter, ':'});
  return names;
}

std::vector<std::string> WindowsFolderReader::Subfolders(std::string_view folder) {
  return Names(folder, Kind::Folder, [](std::string_view) { return true; });
}

std::vector<std::string> WindowsFolderReader::Files(std::string_view folder, std::string_view pattern) {
  return Names(folder, Kind::File,
               [patterns = NamePatterns(pattern)](std::string_view name) { return patterns.Match(name); });
}

std::string WindowsFolderReader::StartFolder() {
  std::vector<std::string> folders = Drives();
  folders.insert(folders.begin(), FullPath("."));
  for (const std::string &folder : folders)
    if (std::string canonical; FindFolder(folder, canonical) == 0)
      return canonical;
  return "C:\\";
}

std::string WindowsFolderReader::CanonicalFolder(std::string_view folder) {
  std::string canonical;
  if (const std::uint32_t error = FindFolder(folder, canonical); error != 0)
    ThrowListError(error);
  return canonical;
}

bool WindowsFolderReader::MakeFolder(std::string_view path) {
  std::wstring systemPath;
  if (const std::uint32_t error = ToSystemPath(path, systemPath); error != 0)
    ThrowFolderError(error);
  if (CreateDirectoryW(systemPath.c_str(), nullptr) != 0)
    return true;
  const std::uint32_t error = WhatIsMissing(GetLastError(), systemPath);
  // The root of a drive is there, though the system may refuse to make it for another reason.
  if (error != ERROR_ALREADY_EXISTS && !(IsRoot(systemPath) && CheckReadable(systemPath) == 0))
    ThrowFolderError(error);
  return false;
}

} // namespace turfdesk
