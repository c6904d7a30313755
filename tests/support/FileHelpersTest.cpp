// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/basVorinFile.h"

#include "common/TestWorld.h"
#include "samples/Basics.h"

#include <gtest/gtest.h>

#include <fstream>

namespace turfdesk {

namespace {

class FileHelpersTest : public testing::Test {
protected:
  void Write(const std::string &path, const std::string &content) {
    samples::WriteFile(world.Host(path), samples::ToBytes(content));
  }
  std::string Read(const std::string &path) {
    std::ifstream file(world.Host(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  test::TestWorld world;
  std::string folder = world.MakeFolder(R"(C:\Games)");
};

} // namespace

TEST_F(FileHelpersTest, ExtensionsComeWithoutADotAndAreReplaced) {
  EXPECT_EQ(GetExtension(world.state, R"(C:\a.b\Old Elm.HLC)"), "HLC");
  EXPECT_EQ(GetExtension(world.state, R"(C:\a.b\none)"), "");
  EXPECT_EQ(ChangeExtension(world.state, R"(C:\a.b\Old Elm.hlc)", "hlz"), R"(C:\a.b\Old Elm.hlz)");
  EXPECT_EQ(ChangeExtension(world.state, R"(C:\a.b\none)", "hlz"), R"(C:\a.b\none.hlz)");
}

TEST_F(FileHelpersTest, CopyTakesDirectoriesWithAndWithoutBackslashAndKeepsTheReason) {
  Write(R"(C:\Games\a.txt)", "new");
  Write(R"(C:\Games\b.txt)", "old");
  EXPECT_TRUE(CopyFile(world.state, folder, "a.txt", folder + "\\", "b.txt"));
  EXPECT_EQ(Read(R"(C:\Games\b.txt)"), "new");
  EXPECT_FALSE(CopyFile(world.state, folder, "missing.txt", folder, "b.txt"));
  EXPECT_EQ(GetLastFileError(world.state), "File not found");
  EXPECT_FALSE(CopyFile(world.state, folder, "a.txt", folder, "A.TXT"));
  EXPECT_EQ(GetLastFileError(world.state), "Permission denied");
  EXPECT_EQ(Read(R"(C:\Games\a.txt)"), "new");
}

TEST_F(FileHelpersTest, ASourceThatCannotBeDeletedIsAQuestion) {
  using std::filesystem::perms;
  Write(R"(C:\Games\a.txt)", "content");
  std::filesystem::permissions(world.Host(R"(C:\Games\a.txt)"), perms::owner_read);
  world.boxes.answers = {true, false};
  EXPECT_TRUE(MoveFile(world.state, folder, "a.txt", folder, "b.txt"));
  EXPECT_EQ(world.boxes.shown.back().title, "Turf Desk");
  EXPECT_EQ(world.boxes.shown.back().buttons, BoxButtons::OkCancel);
  EXPECT_FALSE(MoveFile(world.state, folder, "a.txt", folder, "c.txt"));
  EXPECT_EQ(Read(R"(C:\Games\a.txt)") + Read(R"(C:\Games\b.txt)") + Read(R"(C:\Games\c.txt)"), "contentcontentcontent");

  std::filesystem::permissions(world.Host(R"(C:\Games\a.txt)"), perms::owner_all);
  world.boxes.shown.clear();
  EXPECT_TRUE(MoveFile(world.state, folder, "a.txt", folder, "d.txt"));
  EXPECT_FALSE(FileExists(world.state, R"(C:\Games\a.txt)"));
  EXPECT_TRUE(world.boxes.shown.empty());
}

} // namespace turfdesk
