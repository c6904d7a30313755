// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/zip/ZipStatus.h"

#include <cstdint>

namespace turfdesk {

/// How many bytes stand before an archive that do not count in its offsets, such as a program to which it was appended
/// as it was. 0 where the offsets lead to the directory as they are, and where there is no archive. Throws RuntimeError
/// when the file cannot be read.
std::uint64_t BytesBeforeArchive(BinaryFile &file);

/// Tells apart the files in which libzip finds no archive: those with an end record, whose directory is damaged; those
/// that begin like an archive, which are cut short or have more disks; and those that are something else. Throws
/// RuntimeError when the file cannot be read.
ZipStatus StatusWithoutDirectory(BinaryFile &file);

} // namespace turfdesk
