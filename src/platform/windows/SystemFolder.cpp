// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/SystemFolder.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace turfdesk {

std::string SystemFolder() {
  std::wstring folder(GetSystemDirectoryW(nullptr, 0), L'\0');
  folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
  return ToUtf8(folder);
}

} // namespace turfdesk
