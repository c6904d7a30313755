// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <filesystem>

namespace turfdesk::test {

/// A drive A: that is there but not ready, as when no disk lies in it, for as long as the object lives.
class UnreadyDrive {
public:
  explicit UnreadyDrive(const std::filesystem::path &home);
  UnreadyDrive(const UnreadyDrive &) = delete;
  UnreadyDrive &operator=(const UnreadyDrive &) = delete;
  ~UnreadyDrive();

private:
  std::filesystem::path mPlace;
};

} // namespace turfdesk::test
