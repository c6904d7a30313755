// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <cstdint>
#include <string>

namespace turfdesk {

/// Reads the identity at the head of a library file. Set FileName, call ReadFile once, then take the other members; on
/// a false result take LastError.
class LibraryFile {
public:
  explicit LibraryFile(SharedState &state) : mState(state) {}

  /// Full path of the file to read.
  std::string FileName;

  /// True when all fields were read. A missing file gives false and leaves LastError as it was; any other failure puts
  /// its description there. Fields read before a failure keep their new values. The file is closed in every case.
  bool ReadFile();

  const std::string &LastError() const { return mLastError; }
  /// The library's display name.
  const std::string &Name() const { return mName; }
  /// The library's identity, as FieldReader::ReadGUID gives it.
  const std::string &GUID() const { return mGUID; }
  /// The first field of the file. No check rests on it.
  std::int16_t Version() const { return mVersion; }

private:
  SharedState &mState;
  std::string mLastError;
  std::string mName;
  std::string mGUID;
  std::int16_t mVersion = 0;
};

} // namespace turfdesk
