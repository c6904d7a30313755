// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "common/UnreadyDrive.h"
#include "platform/NamePatterns.h"

#include <algorithm>

namespace turfdesk::test {

namespace {

class FolderReaderTest : public PlatformTest {
protected:
  FolderReader &mReader = mPlatform->Folders();
};

TEST(NamePatterns, MatchAsTheFileListDoes) {
  const struct {
    const char *pattern, *name;
    bool matches;
  } cases[] = {
      {"*.hlc;*.hlb", "x.HLB", true},
      {"*.qar;*.qtn; *.qtb", "x.qtb", true},
      {"*.hlc", "x.hlc.bak", false},
      {"*.HLC", "x.hlc", true},
      {"*a*b*c", "xaxbxbc", true},
      {"*a*b*c", "xaxcxb", false},
      {"?.hlc", "\u00E9.hlc", true},
      {"??.hlc", "\u00E9.hlc", false},
      {"*\u00C9.hlc", "caf\u00E9.hlc", true},
      {"*.*", "README", true},
      {"*.", "README", false},
      {"x", "x", true},
      {"x?", "x", false},
      {"", "x", false},
      {" ; ", "x", false},
  };
  for (const auto &c : cases)
    EXPECT_EQ(NamePatterns(c.pattern).Match(c.name), c.matches) << c.pattern << " " << c.name;
}

TEST_F(FolderReaderTest, ListsFilesThatFitAndFoldersSortedByName) {
  for (const char *file : {"b.hlc", "A.hlb", "\u00C4.hlc", "c.HLC", "\U0001F3CC.hlc", "note.txt", R"(Folder.hlc\x)",
                           R"(sub\x)", R"(Again\x)"})
    Put(std::string(R"(C:\Games\)") + file);
  EXPECT_EQ(mReader.Files("c:/GAMES", "*.hlc; *.HLB"),
            (Texts{"A.hlb", "\u00C4.hlc", "b.hlc", "c.HLC", "\U0001F3CC.hlc"}));
  EXPECT_EQ(mReader.Subfolders(R"(C:\Games\)"), (Texts{"Again", "Folder.hlc", "sub"}));
}

TEST_F(FolderReaderTest, DrivesAreListedReadyOrNotInTheOrderOfTheirLetters) {
  const UnreadyDrive unready(mHome.Path());
  const Texts drives = mReader.Drives();
  EXPECT_EQ(drives.front(), "A:");
  EXPECT_EQ(std::ranges::count(drives, "C:"), 1);
  EXPECT_TRUE(std::ranges::is_sorted(drives));
}

TEST_F(FolderReaderTest, FoldersHaveOneCanonicalPath) {
  Put(R"(C:\Old Courses\Deep\x)");
  for (const char *path : {R"(C:\Old Courses\Deep)", "c:/OLD courses/deep/", R"(C:\x\..\old courses\.\y\..\DEEP\\)"})
    EXPECT_EQ(mReader.CanonicalFolder(path), R"(C:\Old Courses\Deep)") << path;
  for (const char *root : {"c:", "c:/", R"(C:\Old Courses\..)", R"(C:\..\..)"})
    EXPECT_EQ(mReader.CanonicalFolder(root), "C:\\") << root;
}

TEST_F(FolderReaderTest, ListsStartWhereTheProgramWasStarted) {
  Put(R"(C:\Games\x)");
  std::filesystem::current_path(Host(R"(C:\Games)"));
  EXPECT_EQ(mReader.StartFolder(), R"(C:\Games)");
  EXPECT_EQ(mPlatform->ToWindowsPath("New/x.hlc"), R"(C:\Games\New\x.hlc)");
  EXPECT_EQ(mPlatform->ToWindowsPath("../x"), R"(C:\x)");
}

} // namespace

} // namespace turfdesk::test
