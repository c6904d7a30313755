// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/ZipStatus.h"

#include <algorithm>
#include <iterator>

namespace turfdesk {

namespace {

struct FailureRow {
  ErrorNumber number;
  ZipStatus reading;
  ZipStatus writing;
};

// Numbers that are not listed are plain read and write errors.
constexpr FailureRow FailureRows[] = {
    {ErrorNumber::OutOfMemory, ZipStatus::NotEnoughMemory, ZipStatus::NotEnoughMemory},
    {ErrorNumber::BadFileName, ZipStatus::ReadFailed, ZipStatus::CannotCreateFile},
    {ErrorNumber::DiskFull, ZipStatus::DiskFull, ZipStatus::DiskFull},
    {ErrorNumber::InputPastEnd, ZipStatus::EndOfFile, ZipStatus::WriteFailed},
    {ErrorNumber::DeviceUnavailable, ZipStatus::DriveUnavailable, ZipStatus::DriveUnavailable},
    {ErrorNumber::PermissionDenied, ZipStatus::ReadFailed, ZipStatus::CannotCreateFile},
    {ErrorNumber::DiskNotReady, ZipStatus::DriveUnavailable, ZipStatus::DriveUnavailable},
    {ErrorNumber::PathFileAccess, ZipStatus::ReadFailed, ZipStatus::CannotCreateFile},
    {ErrorNumber::PathNotFound, ZipStatus::ReadFailed, ZipStatus::CannotCreateFolder},
};

struct LibzipRow {
  int error;
  ZipStatus status;
};

constexpr LibzipRow LibzipRows[] = {
    {ZIP_ER_MULTIDISK, ZipStatus::MultipleDisks},
    {ZIP_ER_SEEK, ZipStatus::BadStructure},
    {ZIP_ER_READ, ZipStatus::ReadFailed},
    {ZIP_ER_WRITE, ZipStatus::WriteFailed},
    {ZIP_ER_CRC, ZipStatus::ChecksumWrong},
    // What is missing is the extra field of an entry with a size or place that takes 64 bits.
    {ZIP_ER_NOENT, ZipStatus::BadStructure},
    {ZIP_ER_ZLIB, ZipStatus::BadStructure},
    {ZIP_ER_MEMORY, ZipStatus::NotEnoughMemory},
    {ZIP_ER_COMPNOTSUPP, ZipStatus::UnsupportedVersion},
    {ZIP_ER_EOF, ZipStatus::EndOfFile},
    {ZIP_ER_NOZIP, ZipStatus::BadStructure},
    {ZIP_ER_INCONS, ZipStatus::BadStructure},
    {ZIP_ER_ENCRNOTSUPP, ZipStatus::UnsupportedVersion},
    {ZIP_ER_NOPASSWD, ZipStatus::UnsupportedVersion},
    {ZIP_ER_COMPRESSED_DATA, ZipStatus::BadStructure},
};

const FailureRow *FindFailure(ErrorNumber number) {
  const auto *row = std::find_if(std::begin(FailureRows), std::end(FailureRows),
                                 [number](const FailureRow &candidate) { return candidate.number == number; });
  return row == std::end(FailureRows) ? nullptr : row;
}

} // namespace

ZipStatus StatusOfReading(ErrorNumber number) {
  const FailureRow *row = FindFailure(number);
  return row == nullptr ? ZipStatus::ReadFailed : row->reading;
}

ZipStatus StatusOfWriting(ErrorNumber number) {
  const FailureRow *row = FindFailure(number);
  return row == nullptr ? ZipStatus::WriteFailed : row->writing;
}

ZipStatus StatusOfLibzip(zip_error_t *error) {
  const int code = zip_error_code_zip(error);
  const auto *row = std::find_if(std::begin(LibzipRows), std::end(LibzipRows),
                                 [code](const LibzipRow &candidate) { return candidate.error == code; });
  return row == std::end(LibzipRows) ? ZipStatus::InternalLogic : row->status;
}

} // namespace turfdesk
