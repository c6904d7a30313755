// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/SystemPath.h"

#include "platform/NextName.h"
#include "platform/PathText.h"
#include "platform/WindowsNames.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>

namespace turfdesk {

namespace {

constexpr std::wstring_view Beginning = LR"(\\?\)";
constexpr std::wstring_view NetworkBeginning = LR"(\\?\UNC\)";
constexpr std::size_t LongestWideName = 255;

std::uint32_t AppendName(std::string_view name, std::wstring &systemPath) {
  if (!IsWindowsNameOfAnyLength(name))
    return ERROR_INVALID_NAME;
  const std::wstring wide = ToWide(name);
  if (wide.size() > LongestWideName)
    return ERROR_FILENAME_EXCED_RANGE;
  systemPath.append(L"\\").append(wide);
  return 0;
}

/// Takes the root off the path: a drive, or the names of a server and its share.
std::uint32_t TakeRoot(std::string_view &path, std::wstring &systemPath) {
  path = WithoutSystemBeginning(path);
  if (IsFullWindowsPath(path)) {
    systemPath.assign(Beginning).append({static_cast<wchar_t>(path[0] & ~0x20), L':'});
    path.remove_prefix(2);
    return 0;
  }
  if (!IsNetworkPath(path))
    return ERROR_PATH_NOT_FOUND;
  systemPath.assign(NetworkBeginning.substr(0, NetworkBeginning.size() - 1));
  path.remove_prefix(2);
  for (int part = 0; part < 2; ++part)
    if (const std::uint32_t error = AppendName(NextName(path, IsSeparator), systemPath); error != 0)
      return error;
  return 0;
}

/// Where the root of a system path ends, before the separator that follows it.
std::size_t RootLength(std::wstring_view systemPath) {
  if (!systemPath.starts_with(NetworkBeginning))
    return Beginning.size() + 2;
  const std::size_t share = systemPath.find(L'\\', NetworkBeginning.size());
  return std::min(systemPath.find(L'\\', share + 1), systemPath.size());
}

/// The folder that a relative path starts from, or "" for a drive that there is not.
std::string StartOf(std::string_view &path) {
  std::wstring start = L".";
  if (path.size() >= 2 && path[1] == ':') {
    start = {static_cast<wchar_t>(path[0]), L':', L'.'};
    path.remove_prefix(2);
  } else if (path.starts_with('\\') || path.starts_with('/')) {
    start = L"\\";
  }
  std::wstring full(GetFullPathNameW(start.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(start.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return ToUtf8(full);
}

} // namespace

std::uint32_t ToSystemPath(std::string_view path, std::wstring &systemPath) {
  if (const std::uint32_t error = TakeRoot(path, systemPath); error != 0)
    return error;
  const std::size_t root = systemPath.size();
  while (!path.empty()) {
    const std::string_view name = NextName(path, IsSeparator);
    if (name.empty() || name == ".")
      continue;
    if (name == "..")
      systemPath.resize(std::max(root, systemPath.rfind(L'\\')));
    else if (const std::uint32_t error = AppendName(name, systemPath); error != 0)
      return error;
  }
  // Without the separator it would be the volume that the drive's letter stands for.
  if (systemPath.size() == root)
    systemPath += L'\\';
  return 0;
}

bool IsRoot(std::wstring_view systemPath) { return systemPath.size() <= RootLength(systemPath) + 1; }

std::wstring PlainPath(std::wstring_view systemPath) {
  if (systemPath.starts_with(NetworkBeginning))
    return L"\\\\" + std::wstring(systemPath.substr(NetworkBeginning.size()));
  return std::wstring(systemPath.starts_with(Beginning) ? systemPath.substr(Beginning.size()) : systemPath);
}

std::string FullPath(std::string_view given) {
  std::string clean = CleanPath(PathOfFileAddress(given).value_or(std::string(given)));
  if (clean.empty() || IsFullWindowsPath(clean) || IsNetworkPath(clean))
    return clean;
  std::string_view path = clean;
  const std::string start = StartOf(path);
  std::wstring systemPath;
  if (ToSystemPath(start + "\\" + std::string(path), systemPath) != 0)
    return "";
  return ToUtf8(PlainPath(systemPath));
}

std::uint32_t WhatIsMissing(std::uint32_t error, const std::wstring &systemPath) {
  if ((error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) || systemPath.starts_with(NetworkBeginning))
    return error;
  const auto drive = static_cast<unsigned>(systemPath[Beginning.size()] - L'A');
  if ((GetLogicalDrives() >> drive & 1U) == 0)
    return ERROR_INVALID_DRIVE;
  const std::wstring root = systemPath.substr(0, RootLength(systemPath)) + L'\\';
  const DWORD attributes = GetFileAttributesW(root.c_str());
  return attributes == INVALID_FILE_ATTRIBUTES && GetLastError() != ERROR_ACCESS_DENIED ? ERROR_NOT_READY : error;
}

} // namespace turfdesk
