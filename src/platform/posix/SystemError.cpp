// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SystemError.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace turfdesk {

namespace {

struct Meaning {
  int error;
  ErrorNumber number;
};

constexpr Meaning Meanings[] = {
    {ENOENT, ErrorNumber::FileNotFound},
    {ENOTDIR, ErrorNumber::PathNotFound},
    {EILSEQ, ErrorNumber::BadFileName},
    {ENAMETOOLONG, ErrorNumber::BadFileName},
    {EACCES, ErrorNumber::PathFileAccess},
    {EPERM, ErrorNumber::PathFileAccess},
    {EROFS, ErrorNumber::PathFileAccess},
    {EISDIR, ErrorNumber::PathFileAccess},
    {EEXIST, ErrorNumber::PathFileAccess},
    {ELOOP, ErrorNumber::PathFileAccess},
    {ENXIO, ErrorNumber::PathFileAccess},
    {ENOEXEC, ErrorNumber::PathFileAccess},
    {EBUSY, ErrorNumber::PermissionDenied},
    {ETXTBSY, ErrorNumber::PermissionDenied},
    {ENOSPC, ErrorNumber::DiskFull},
    {EDQUOT, ErrorNumber::DiskFull},
    // The file would be larger than the disk's format or the user's limit allows.
    {EFBIG, ErrorNumber::DiskFull},
    {ENODEV, ErrorNumber::DeviceUnavailable},
    {ENOTCONN, ErrorNumber::DeviceUnavailable},
    {EHOSTDOWN, ErrorNumber::DeviceUnavailable},
    {ENOMEDIUM, ErrorNumber::DiskNotReady},
    {ENOMEM, ErrorNumber::OutOfMemory},
    {EMFILE, ErrorNumber::TooManyFiles},
    {ENFILE, ErrorNumber::TooManyFiles},
};

} // namespace

ErrorNumber NumberOfSystemError(int error) {
  const auto *const found = std::find_if(std::begin(Meanings), std::end(Meanings),
                                         [error](const Meaning &meaning) { return meaning.error == error; });
  return found == std::end(Meanings) ? ErrorNumber::DeviceIo : found->number;
}

ErrorNumber NumberOfFolderError(int error) { return NumberOfSystemError(error == ENOENT ? ENOTDIR : error); }

void ThrowSystemError(int error) { throw RuntimeError(NumberOfSystemError(error)); }

void ThrowFolderError(int error) { throw RuntimeError(NumberOfFolderError(error)); }

} // namespace turfdesk
