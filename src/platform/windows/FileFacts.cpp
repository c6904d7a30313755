// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/FileFacts.h"

#include "platform/windows/SystemPath.h"

#include <windows.h>

namespace turfdesk {

namespace {

std::uint64_t Joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32U | low; }

} // namespace

std::uint32_t LookAtOpen(const SystemHandle &file, FileFacts &facts) {
  BY_HANDLE_FILE_INFORMATION information;
  if (GetFileInformationByHandle(file.Get(), &information) == 0)
    return GetLastError();
  facts.isFolder = (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  facts.isReadOnly = (information.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  facts.size = Joined(information.nFileSizeHigh, information.nFileSizeLow);
  facts.modified = Joined(information.ftLastWriteTime.dwHighDateTime, information.ftLastWriteTime.dwLowDateTime);
  facts.volume = information.dwVolumeSerialNumber;
  facts.index = Joined(information.nFileIndexHigh, information.nFileIndexLow);
  return 0;
}

std::uint32_t LookAt(std::string_view path, FileFacts &facts) {
  std::wstring systemPath;
  if (const std::uint32_t error = ToSystemPath(path, systemPath); error != 0)
    return error;
  // To look at its attributes a file can be opened whatever others do with it.
  SystemHandle file;
  if (const std::uint32_t error =
          OpenExisting(systemPath, FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, file);
      error != 0)
    return error;
  return LookAtOpen(file, facts);
}

} // namespace turfdesk
