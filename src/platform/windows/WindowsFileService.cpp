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

/// In characters, with the terminating NUL.
constexpr std::size_t LongestSystemPath = 32768;

/// Is it certain that a path that fails so leads to no file?
bool IsAbsence(std::uint32_t error) {
  switch (NumberOfSystemError(error)) {
  case ErrorNumber::FileNotFound:
  case ErrorNumber::PathNotFound:
  case ErrorNumber::BadFileName:
    return true;
  default:
    return error == ERROR_INVALID_DRIVE;
  }
}

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

/// What an environment variable names, or "".
std::wstring Variable(const wchar_t *name) {
  std::wstring text(LongestSystemPath, L'\0');
  const DWORD length = GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size()));
  text.resize(length < text.size() ? length : 0);
  return text;
}

/// Below the first folder for temporary files that can be used; "" when there is none. A variable may name a folder
/// that is gone, or a path that is too long for some of the system's functions.
std::wstring NewTempFolder() {
  for (const std::wstring &parent : {Variable(L"TMP"), Variable(L"TEMP"), Variable(L"LOCALAPPDATA") + L"\\Temp",
                                     Variable(L"SystemRoot") + L"\\Temp"}) {
    std::wstring systemPath;
    if (ToSystemPath(ToUtf8(parent), systemPath) != 0)
      continue;
    if (std::wstring folder = MakeTempFolder(systemPath); !folder.empty())
      return folder;
  }
  return L"";
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

bool WindowsFileService::FileMayExist(std::string_view path) {
  FileFacts facts;
  const std::uint32_t error = LookAt(path, facts);
  return error == 0 ? !facts.isFolder : !IsAbsence(error);
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
    mTempFolder = ToUtf8(PlainPath(NewTempFolder()));
  if (!Record(mTempFolder.empty() ? ERROR_ACCESS_DENIED : 0))
    ThrowSystemError(ERROR_ACCESS_DENIED);
  return mTempFolder;
}

void WindowsFileService::OpenDocument(std::string_view addressOrPath) {
  Record(IsAddress(addressOrPath) ? HandToDesktop(ToWide(addressOrPath)) : OpenFileOfDesktop(addressOrPath));
}

} // namespace turfdesk
