// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "content/CourseFile.h"

#include "content/FieldReader.h"
#include "content/FileHeader.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <exception>
#include <limits>

namespace turfdesk {

namespace {

// A count is only a claim; memory for more is taken as the list turns out to be that long.
constexpr std::int16_t UsualLibraries = 64;

/// Does the number tell of the content, or of a path that no file can have, and not of what keeps it from being read?
bool IsFaultOfFile(ErrorNumber number) {
  return number == ErrorNumber::InputPastEnd || number == ErrorNumber::Overflow || number == ErrorNumber::BadFileName;
}

/// 16 N is a 16-bit number for the game, so a course lists at most 2047 libraries.
std::int32_t GuidListSize(std::int16_t count) {
  const std::int32_t size = header::GuidLength * count;
  if (size > std::numeric_limits<std::int16_t>::max())
    throw RuntimeError(ErrorNumber::Overflow);
  return size;
}

} // namespace

bool CourseFile::ReadFile() {
  try {
    const auto file = mState.platform.Files().OpenForBinaryRead(FileName);
    if (file == nullptr) {
      mIsOutOfReach = mState.fileService->FileMayExist(FileName);
      if (mIsOutOfReach)
        mLastError = ErrorText(ErrorNumber::DiskNotReady);
      return false;
    }
    mFileSize = file->Size();
    ReadFields(*file);
    return true;
  } catch (const RuntimeError &error) {
    mIsOutOfReach = !IsFaultOfFile(error.Number());
    mLastError = error.Description();
  } catch (const std::exception &error) {
    mIsOutOfReach = true;
    mLastError = DescriptionOf(error);
  }
  return false;
}

void CourseFile::ReadFields(BinaryFile &file) {
  FieldReader fields(file);
  mVersion = fields.ReadWord();
  mGUID = fields.ReadGUID();
  fields.SkipBytes(header::IdentityReserved);
  mName = fields.ReadString(header::NameLength);
  fields.SkipBytes(header::BeforeLibraryCount);
  mNumOfLibraries = fields.ReadWord();
  fields.SkipBytes(header::BeforeNamesOffset);
  const std::int32_t namesOffset = fields.ReadDword();
  fields.SkipBytes(header::BeforeGuids);

  std::vector<std::string> guids;
  guids.reserve(static_cast<std::size_t>(std::clamp<std::int16_t>(mNumOfLibraries, 0, UsualLibraries)));
  for (std::int16_t i = 0; i < mNumOfLibraries; ++i)
    guids.push_back(fields.ReadGUID());
  mLibraryGUIDS = std::move(guids);

  mLibraryNames.clear();
  if (mNumOfLibraries <= 0)
    return;
  const std::int32_t gap = namesOffset - header::GuidsOffset - GuidListSize(mNumOfLibraries);
  if (gap < 0)
    return;
  fields.SkipBytes(gap);
  mLibraryNames = fields.ReadStringList();
}

} // namespace turfdesk
