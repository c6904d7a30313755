// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"

namespace turfdesk {

// Inside this folder a failure is a number of the system (errno). The lookup of a path gives these:
//   ENOENT      the file is missing                  ENODEV     there is no such drive
//   ENOTDIR     a folder of the path is missing, or  ENOMEDIUM  the drive leads nowhere at the moment
//               the text is no full path             EILSEQ     a name that no Windows path can express

/// The number that the program knows a failure of the system by.
ErrorNumber NumberOfSystemError(int error);

/// The same where the path stands for a folder: what is missing then is no file but a path.
ErrorNumber NumberOfFolderError(int error);

[[noreturn]] void ThrowSystemError(int error);
[[noreturn]] void ThrowFolderError(int error);

} // namespace turfdesk
