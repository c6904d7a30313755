// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <cstdint>
#include <string>
#include <vector>

namespace turfdesk {

/// Reads the identity at the head of a course file and the list of libraries that the course requires. Set FileName,
/// call ReadFile once, then take the other members; on a false result take LastError.
class CourseFile {
public:
  explicit CourseFile(SharedState &state) : mState(state) {}

  /// Full path of the file to read.
  std::string FileName;

  /// True when all fields were read. A missing file gives false and leaves LastError as it was; any other failure puts
  /// its description there. Fields read before a failure keep their new values. The file is closed in every case.
  bool ReadFile();

  const std::string &LastError() const { return mLastError; }
  /// Did ReadFile fail for a reason that lies outside the file and may pass, such as missing rights or a drive that is
  /// not ready? A missing or malformed file is none. LastError tells the reason.
  bool IsOutOfReach() const { return mIsOutOfReach; }
  /// The course's display name.
  const std::string &Name() const { return mName; }
  /// The course's identity, as FieldReader::ReadGUID gives it.
  const std::string &GUID() const { return mGUID; }
  /// Size of the file in bytes, which the reading learns on the way; 0 when it could not be opened.
  std::uint64_t FileSize() const { return mFileSize; }
  /// The first field of the file. No check rests on it.
  std::int16_t Version() const { return mVersion; }
  /// The field of that name; negative counts as none.
  std::int16_t NumOfLibraries() const { return mNumOfLibraries; }
  /// Display names of the required libraries, in the order of LibraryGUIDS. There may be more or fewer of them.
  const std::vector<std::string> &LibraryNames() const { return mLibraryNames; }
  const std::vector<std::string> &LibraryGUIDS() const { return mLibraryGUIDS; }

private:
  void ReadFields(BinaryFile &file);

  SharedState &mState;
  std::string mLastError;
  bool mIsOutOfReach = false;
  std::string mName;
  std::string mGUID;
  std::uint64_t mFileSize = 0;
  std::int16_t mVersion = 0;
  std::int16_t mNumOfLibraries = 0;
  std::vector<std::string> mLibraryNames;
  std::vector<std::string> mLibraryGUIDS;
};

} // namespace turfdesk
