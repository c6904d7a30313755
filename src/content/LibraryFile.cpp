// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "content/LibraryFile.h"

#include "content/FieldReader.h"
#include "content/FileHeader.h"
#include "platform/RuntimeError.h"

#include <exception>

namespace turfdesk {

bool LibraryFile::ReadFile() {
  try {
    const auto file = mState.platform.Files().OpenForBinaryRead(FileName);
    if (file == nullptr)
      return false;
    FieldReader fields(*file);
    mVersion = fields.ReadWord();
    mGUID = fields.ReadGUID();
    fields.SkipBytes(header::IdentityReserved);
    mName = fields.ReadString(header::NameLength);
    return true;
  } catch (const std::exception &error) {
    mLastError = DescriptionOf(error);
    return false;
  }
}

} // namespace turfdesk
