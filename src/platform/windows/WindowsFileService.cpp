// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsFileService.h"

#include "platform/PathText.h"
#include "platform/WindowsNames.h"
#include "platform/windows/FileFacts.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/TempFolder.h"
#include "platform/windows/WideText.h"

#include <windows.h>

// The two need the one above.
#include <objbase.h>
#include <shellapi.h>

// The system has a macro of this name.
#undef DeleteFile

namespace turfdesk {

namespace {

std::uint32_t Delete(std::string_view path) {
  std::wstring systemPath;
  if (const std::uint32_t error = ToSystemPath(path, systemPath); error != 0)
    return error;
  const DWORD attributes = GetFileAttributesW(systemPath.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES)
    return WhatIsMissing(GetLastError(), systemPath);
  // Asked for here and not of the system, which in its newer versions deletes read-only files.
  if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0)
    return ERROR_ACCESS_DENIED;
  return DeleteFileW(systemPath.c_str()) != 0 ? 0 : GetLastError();
}

/// Some programs are started by way of COM.
class ComUse {
public:
  ComUse() : mStarted(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
  ComUse(const ComUse &) = delete;
  ComUse &operator=(const ComUse &) = delete;
  ~ComUse() {
    if (mStarted)
      CoUninitialize();
  }

private:
  bool mStarted;
};

std::uint32_t HandToDesktop(const std::wstring &target) {
  const ComUse com;
  SHELLEXECUTEINFOW order = {};
  order.cbSize = sizeof(order);
  // Without it the system would show a box of its own before the program shows one.
  order.fMask = SEE_MASK_FLAG_NO_UI;
  order.lpFile = target.c_str();
  order.nShow = SW_SHOWNORMAL;
  return ShellExecuteExW(&order) != 0 ? 0 : GetLastError();
}

std::uint32_t OpenFileOfDesktop(std::string_view path) {
  FileFacts facts;
  if (const std::uint32_t error = LookAt(path, facts); error != 0)
    return error;
  std::wstring systemPath;
  ToSystemPath(path, systemPath);
  return HandToDesktop(PlainPath(systemPath));
}

std::wstring SystemTempFolder() {
  wchar_t path[MAX_PATH + 1];
  const DWORD length = GetTempPathW(MAX_PATH + 1, path);
  std::wstring systemPath;
  ToSystemPath(ToUtf8({path, length}), systemPath);
  return systemPath;
}

} // namespace

bool WindowsFileService::Record(std::uint32_t error) {
  mLastError = 0;
  if (error == 0)
    return true;
  const ErrorNumber number = NumberOfSystemError(error);
  mLastError = static_cast<long>(number);
  mLastErrorText = ErrorText(number);
  return false;
}

bool WindowsFileService::DeleteFile(std::string_view path) { return Record(Delete(path)); }

bool WindowsFileService::DirExists(std::string_view path) {
  FileFacts facts;
  return LookAt(path, facts) == 0 && facts.isFolder;
}

bool WindowsFileService::FileExists(std::string_view path) {
  FileFacts facts;
  return LookAt(path, facts) == 0 && !facts.isFolder;
}

double WindowsFileService::GetFileSize(std::string_view path) {
  FileFacts facts;
  return LookAt(path, facts) == 0 && !facts.isFolder ? static_cast<double>(facts.size) : 0;
}

bool WindowsFileService::IsValidFilename(std::string_view text) {
  std::wstring systemPath;
  return ToSystemPath(text, systemPath) == 0 && IsWindowsNameOfAnyLength(FilePartOf(text)) &&
         DirExists(DirPrefixOf(text)) && !DirExists(text);
}

std::string WindowsFileService::GetTempFolder() {
  // It may be gone: systems sweep their temporary files.
  if (mTempFolder.empty() || !DirExists(mTempFolder))
    mTempFolder = ToUtf8(PlainPath(MakeTempFolder(SystemTempFolder())));
  if (!Record(mTempFolder.empty() ? ERROR_ACCESS_DENIED : 0))
    ThrowSystemError(ERROR_ACCESS_DENIED);
  return mTempFolder;
}

void WindowsFileService::OpenDocument(std::string_view addressOrPath) {
  Record(IsAddress(addressOrPath) ? HandToDesktop(ToWide(addressOrPath)) : OpenFileOfDesktop(addressOrPath));
}

} // namespace turfdesk
