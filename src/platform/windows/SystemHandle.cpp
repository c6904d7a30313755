// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/SystemHandle.h"

#include "platform/windows/SystemPath.h"

#include <windows.h>

namespace turfdesk {

SystemHandle::SystemHandle(void *handle) : mHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}

SystemHandle::~SystemHandle() {
  if (IsOpen())
    CloseHandle(mHandle);
}

std::uint32_t OpenExisting(const std::wstring &systemPath, std::uint32_t access, std::uint32_t sharing,
                           SystemHandle &handle, std::uint32_t flags) {
  // Without the flag a folder is told as one that may not be accessed.
  handle = SystemHandle(CreateFileW(systemPath.c_str(), access, sharing, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr));
  return handle.IsOpen() ? 0 : WhatIsMissing(GetLastError(), systemPath);
}

} // namespace turfdesk
