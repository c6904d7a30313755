// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/SystemError.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

namespace turfdesk {

namespace {

struct Meaning {
  DWORD error;
  ErrorNumber number;
};

// Not every compiler's headers have these.
constexpr DWORD VirusInfected = 225;
constexpr DWORD FileSystemLimitation = 665;
constexpr DWORD ElevationRequired = 740;
constexpr DWORD DiskQuotaExceeded = 1295;
constexpr DWORD DriveIsLocked = 0x80310000;

constexpr Meaning Meanings[] = {
    {ERROR_FILE_NOT_FOUND, ErrorNumber::FileNotFound},
    {ERROR_PATH_NOT_FOUND, ErrorNumber::PathNotFound},
    {ERROR_DIRECTORY, ErrorNumber::PathNotFound},
    {ERROR_INVALID_NAME, ErrorNumber::BadFileName},
    {ERROR_BAD_PATHNAME, ErrorNumber::BadFileName},
    {ERROR_FILENAME_EXCED_RANGE, ErrorNumber::BadFileName},
    {ERROR_ACCESS_DENIED, ErrorNumber::PathFileAccess},
    {ERROR_NETWORK_ACCESS_DENIED, ErrorNumber::PathFileAccess},
    {ERROR_PRIVILEGE_NOT_HELD, ErrorNumber::PathFileAccess},
    {ElevationRequired, ErrorNumber::PathFileAccess},
    {ERROR_CANCELLED, ErrorNumber::PathFileAccess},
    {ERROR_WRITE_PROTECT, ErrorNumber::PathFileAccess},
    {ERROR_CANNOT_MAKE, ErrorNumber::PathFileAccess},
    {ERROR_FILE_EXISTS, ErrorNumber::PathFileAccess},
    {ERROR_ALREADY_EXISTS, ErrorNumber::PathFileAccess},
    {ERROR_DELETE_PENDING, ErrorNumber::PathFileAccess},
    {ERROR_CANT_RESOLVE_FILENAME, ErrorNumber::PathFileAccess},
    {VirusInfected, ErrorNumber::PathFileAccess},
    {ERROR_BAD_EXE_FORMAT, ErrorNumber::PathFileAccess},
    {ERROR_EXE_MACHINE_TYPE_MISMATCH, ErrorNumber::PathFileAccess},
    {ERROR_SXS_CANT_GEN_ACTCTX, ErrorNumber::PathFileAccess},
    {ERROR_NO_ASSOCIATION, ErrorNumber::PathFileAccess},
    {DriveIsLocked, ErrorNumber::PathFileAccess},
    // A share on the network that lets this user not in.
    {ERROR_INVALID_PASSWORD, ErrorNumber::PathFileAccess},
    {ERROR_SESSION_CREDENTIAL_CONFLICT, ErrorNumber::PathFileAccess},
    {ERROR_LOGON_FAILURE, ErrorNumber::PathFileAccess},
    {ERROR_ACCOUNT_RESTRICTION, ErrorNumber::PathFileAccess},
    {ERROR_PASSWORD_EXPIRED, ErrorNumber::PathFileAccess},
    {ERROR_ACCOUNT_DISABLED, ErrorNumber::PathFileAccess},
    {ERROR_ACCOUNT_LOCKED_OUT, ErrorNumber::PathFileAccess},
    {ERROR_SHARING_VIOLATION, ErrorNumber::PermissionDenied},
    {ERROR_LOCK_VIOLATION, ErrorNumber::PermissionDenied},
    {ERROR_USER_MAPPED_FILE, ErrorNumber::PermissionDenied},
    {ERROR_BUSY, ErrorNumber::PermissionDenied},
    {ERROR_DISK_FULL, ErrorNumber::DiskFull},
    {ERROR_HANDLE_DISK_FULL, ErrorNumber::DiskFull},
    {DiskQuotaExceeded, ErrorNumber::DiskFull},
    // The file would be larger than the disk's format allows.
    {ERROR_FILE_TOO_LARGE, ErrorNumber::DiskFull},
    {FileSystemLimitation, ErrorNumber::DiskFull},
    {ERROR_INVALID_DRIVE, ErrorNumber::DeviceUnavailable},
    {ERROR_BAD_UNIT, ErrorNumber::DeviceUnavailable},
    {ERROR_BAD_NETPATH, ErrorNumber::DeviceUnavailable},
    {ERROR_BAD_NET_NAME, ErrorNumber::DeviceUnavailable},
    {ERROR_DEV_NOT_EXIST, ErrorNumber::DeviceUnavailable},
    {ERROR_NETNAME_DELETED, ErrorNumber::DeviceUnavailable},
    {ERROR_UNEXP_NET_ERR, ErrorNumber::DeviceUnavailable},
    {ERROR_NO_NET_OR_BAD_PATH, ErrorNumber::DeviceUnavailable},
    {ERROR_DEVICE_NOT_CONNECTED, ErrorNumber::DeviceUnavailable},
    {ERROR_NETWORK_UNREACHABLE, ErrorNumber::DeviceUnavailable},
    {ERROR_REM_NOT_LIST, ErrorNumber::DeviceUnavailable},
    {ERROR_NETWORK_BUSY, ErrorNumber::DeviceUnavailable},
    {ERROR_SEM_TIMEOUT, ErrorNumber::DeviceUnavailable},
    {ERROR_CONNECTION_UNAVAIL, ErrorNumber::DeviceUnavailable},
    {ERROR_NO_NETWORK, ErrorNumber::DeviceUnavailable},
    {ERROR_HOST_UNREACHABLE, ErrorNumber::DeviceUnavailable},
    {ERROR_NOT_READY, ErrorNumber::DiskNotReady},
    {ERROR_WRONG_DISK, ErrorNumber::DiskNotReady},
    {ERROR_NO_MEDIA_IN_DRIVE, ErrorNumber::DiskNotReady},
    {ERROR_MEDIA_CHANGED, ErrorNumber::DiskNotReady},
    {ERROR_UNRECOGNIZED_VOLUME, ErrorNumber::DiskNotReady},
    {ERROR_UNRECOGNIZED_MEDIA, ErrorNumber::DiskNotReady},
    {ERROR_NOT_ENOUGH_MEMORY, ErrorNumber::OutOfMemory},
    {ERROR_OUTOFMEMORY, ErrorNumber::OutOfMemory},
    {ERROR_NO_SYSTEM_RESOURCES, ErrorNumber::OutOfMemory},
    {ERROR_TOO_MANY_OPEN_FILES, ErrorNumber::TooManyFiles},
};

} // namespace

std::string SystemWords(std::uint32_t error) {
  wchar_t *words = nullptr;
  constexpr DWORD flags = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  const DWORD length = FormatMessageW(flags, nullptr, error, 0, reinterpret_cast<wchar_t *>(&words), 0, nullptr);
  if (length == 0)
    return "System error " + std::to_string(error);
  std::string text = ToUtf8({words, length});
  LocalFree(words);
  text.resize(text.find_last_not_of(" \r\n") + 1);
  return text;
}

ErrorNumber NumberOfSystemError(std::uint32_t error) {
  const auto *const found = std::find_if(std::begin(Meanings), std::end(Meanings),
                                         [error](const Meaning &meaning) { return meaning.error == error; });
  return found == std::end(Meanings) ? ErrorNumber::DeviceIo : found->number;
}

void ThrowSystemError(std::uint32_t error) { throw RuntimeError(NumberOfSystemError(error)); }

void ThrowFolderError(std::uint32_t error) {
  ThrowSystemError(error == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : error);
}

} // namespace turfdesk
