// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "common/WorldHome.h"
#include "platform/Platform.h"
#include "platform/RuntimeError.h"
#include "platform/TemporaryNames.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk::test {

using Texts = std::vector<std::string>;

/// Numbers of failures, 0 for success, each with the paths that are to give it.
using PathsByNumber = std::map<int, Texts>;

/// This system's platform over a drive C: and a settings tree of its own for each test. Paths are Windows paths.
class PlatformTest : public testing::Test {
protected:
  PlatformTest();
  ~PlatformTest() override;

  std::filesystem::path Host(const std::string &path) const { return HostIn(mHome.Path(), path); }
  /// Writes a file by the host's own means, making its folder. Gives its path.
  std::string Put(const std::string &path, std::string_view content = {}) const;
  std::string Content(const std::string &path) const;
  /// What is in a folder, hidden names included and those of the system's own excluded, sorted.
  Texts Entries(const std::string &folder) const;
  /// Starts a program and waits for its end.
  void Run(const std::string &program, const Texts &arguments) const;

  /// The key that tests of the settings tree may use. It is not there at first.
  static constexpr const char *Key = R"(Software\Turf Desk Tests)";
  static std::string Below(const std::string &rest) { return std::string(Key) + '\\' + rest; }

  WorldHome mHome;
  std::unique_ptr<Platform> mPlatform;
};

void Write(StagedFile &file, std::string_view text);

/// What a program that was killed may have left.
std::string LeftoverName(const TemporaryNames &names, std::uint8_t number = 0);

/// Copies to the end.
void CopyNow(FileCopier &copier, const std::string &from, const std::string &to, const FileCopier::Report &report);

/// More than the pieces that a file is copied in, with different content all over.
std::string LargeContent();

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

} // namespace turfdesk::test
