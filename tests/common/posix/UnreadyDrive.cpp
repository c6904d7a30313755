// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/UnreadyDrive.h"

namespace turfdesk::test {

UnreadyDrive::UnreadyDrive(const std::filesystem::path &home) : mPlace(home / "drives" / "a:") {
  std::filesystem::create_symlink(home / "nowhere", mPlace);
}

UnreadyDrive::~UnreadyDrive() {
  std::error_code ignored;
  std::filesystem::remove(mPlace, ignored);
}

} // namespace turfdesk::test
