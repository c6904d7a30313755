// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/UnreadyDrive.h"

#include <fstream>
#include <stdexcept>

#include <windows.h>

namespace turfdesk::test {

// The letter stands for a folder that has become a file since, so nothing can be reached by it.
UnreadyDrive::UnreadyDrive(const std::filesystem::path &home) : mPlace(home / "nowhere") {
  std::filesystem::create_directory(mPlace);
  if (DefineDosDeviceW(0, L"A:", mPlace.c_str()) == 0)
    throw std::runtime_error("no drive A:");
  std::filesystem::remove(mPlace);
  std::ofstream(mPlace).put(' ');
}

UnreadyDrive::~UnreadyDrive() { DefineDosDeviceW(DDD_REMOVE_DEFINITION, L"A:", nullptr); }

} // namespace turfdesk::test
