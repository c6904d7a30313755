// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"

#include <cstdint>
#include <exception>
#include <zip.h>

namespace turfdesk {

/// The statuses that this zip layer gives. docs/zip-status.md lists the faults behind each.
enum class ZipStatus : std::int16_t {
  Done = 0,
  ArchiveMissing = 30,
  ArchiveEmpty = 50,
  NotAnArchive = 100,
  BadStructure = 110,
  NotEnoughMemory = 120,
  BadCall = 130,
  NothingToDo = 140,
  DiskFull = 150,
  EndOfFile = 160,
  ChecksumWrong = 200,
  InternalLogic = 250,
  ReadFailed = 290,
  WriteFailed = 300,
  CannotCreateFile = 310,
  OutsideFolder = 350,
  NameRepeated = 370,
  DriveUnavailable = 400,
  MultipleDisks = 410,
  UnsupportedVersion = 490,
  CannotCreateFolder = 510,
};

/// Ends a call of the zip layer with a status.
class ZipFault : public std::exception {
public:
  explicit ZipFault(ZipStatus status) : mStatus(status) {}
  ZipStatus Status() const { return mStatus; }
  const char *what() const noexcept override { return "zip fault"; }

private:
  ZipStatus mStatus;
};

/// What a failure means that was met while reading an archive or a source file.
ZipStatus StatusOfReading(ErrorNumber number);
/// What a failure means that was met while writing an archive or an extracted file.
ZipStatus StatusOfWriting(ErrorNumber number);
/// What an error of libzip means.
ZipStatus StatusOfLibzip(zip_error_t *error);

/// Runs body, turning its RuntimeError into the ZipFault of a failed read.
template <typename Body> auto WhileReading(Body body) {
  try {
    return body();
  } catch (const RuntimeError &error) {
    throw ZipFault(StatusOfReading(error.Number()));
  }
}

/// Runs body, turning its RuntimeError into the ZipFault of a failed write.
template <typename Body> auto WhileWriting(Body body) {
  try {
    return body();
  } catch (const RuntimeError &error) {
    throw ZipFault(StatusOfWriting(error.Number()));
  }
}

} // namespace turfdesk
