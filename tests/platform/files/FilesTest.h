// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"
#include "platform/posix/PathMap.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// A home folder of its own for each test. Drive C: is an empty folder of it, Z: the whole disk.
class FilesTest : public testing::Test {
protected:
  FilesTest();
  ~FilesTest() override;

  /// Host path of what has this path, with slashes, on drive C:.
  std::filesystem::path Host(std::string_view path) const { return mHome / "drive_c" / path; }
  /// Writes a file on drive C:, making its folder.
  void Put(std::string_view path, std::string_view content) const;
  std::string Content(std::string_view path) const;
  /// Everything in a folder of drive C:, hidden names included, sorted.
  std::vector<std::string> Entries(std::string_view folder) const;

  std::filesystem::path mFolder; ///< removed after the test
  std::filesystem::path mHome;
  PathMap mPaths;
};

/// Numbers of RuntimeErrors, 0 for success, each with the paths that are to give it.
using PathsByNumber = std::map<int, std::vector<std::string>>;

/// The number of the RuntimeError that a routine throws, or 0. The words must be those of the number.
template <class Routine> int NumberThrownBy(Routine routine) {
  try {
    routine();
  } catch (const RuntimeError &error) {
    EXPECT_EQ(error.Description(), ErrorText(error.Number()));
    return static_cast<int>(error.Number());
  }
  return 0;
}

} // namespace turfdesk
