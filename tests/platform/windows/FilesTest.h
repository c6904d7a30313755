// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"
#include "platform/windows/SystemHandle.h"
#include "platform/windows/WindowsBinaryFiles.h"
#include "platform/windows/WindowsStagedFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// A folder of its own for each test, below the folder for temporary files. Paths are UTF-8.
class FilesTest : public testing::Test {
protected:
  FilesTest();
  ~FilesTest() override;

  /// The path of what has this name, or path, in the test's folder.
  std::string Path(std::string_view name) const { return mFolder + "\\" + std::string(name); }
  /// Writes a file there, making its folders. Gives its path.
  std::string Put(std::string_view name, std::string_view content);
  /// What the file at a path holds.
  std::string Content(std::string_view path);
  /// Everything in a folder, hidden names included, sorted.
  static std::vector<std::string> Entries(std::string_view folder);
  static void SetAttributes(std::string_view path, std::uint32_t attributes);
  /// Opens the file at a path as another program could, which shares it with nobody.
  static SystemHandle OpenExclusively(std::string_view path);

  std::string mFolder;
  WindowsBinaryFiles mFiles;
  WindowsStagedFiles mNewFiles;
};

void Write(StagedFile &file, std::string_view text);

/// A file that is not small, with different content all over.
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

} // namespace turfdesk
