// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "common/UnreadyDrive.h"
#include "platform/NamePatterns.h"

#include <algorithm>
#include <new>
#include <stdexcept>

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

TEST_F(FolderReaderTest, MakesAFolderUnlessItsNameIsTakenOrNone) {
  Put(R"(C:\Games\file)");
  EXPECT_TRUE(mReader.MakeFolder("C:\\Games\\B\u00E4ume"));
  EXPECT_EQ(mReader.Subfolders(R"(C:\Games)"), Texts{"B\u00E4ume"});
  for (const char *taken : {"C:\\games\\B\u00C4UME", R"(C:\Games\FILE)", "C:\\"})
    EXPECT_FALSE(mReader.MakeFolder(taken)) << taken;
}

TEST_F(FolderReaderTest, ListsStartWhereTheProgramWasStarted) {
  Put(R"(C:\Games\x)");
  std::filesystem::current_path(Host(R"(C:\Games)"));
  EXPECT_EQ(mReader.StartFolder(), R"(C:\Games)");
  EXPECT_EQ(mPlatform->ToWindowsPath("New/x.hlc"), R"(C:\Games\New\x.hlc)");
  EXPECT_EQ(mPlatform->ToWindowsPath("../x"), R"(C:\x)");
}

TEST_F(FolderReaderTest, APathThatAUserGivesGetsOneForm) {
  const std::pair<std::string, const char *> cases[] = {
      {R"(C:\Dl\)", R"(C:\Dl)"},
      {"c:/Dl//a b.hlc", R"(C:\Dl\a b.hlc)"},
      {R"(C:\Dl\.\none\..\\x)", R"(C:\Dl\x)"},
      {R"(C:\..\x\..\..)", "C:\\"},
      {"q:", "Q:\\"},
      {R"(\\server/share)", R"(\\server\share)"},
      {R"(\\server\share\\x\..\..\..\y\)", R"(\\server\share\y)"},
      {R"(\\?\C:\Games/x)", R"(C:\Games\x)"},
      {R"(\\?\UNC\server\share\x)", R"(\\server\share\x)"},
      {"file:///c:/My%20Courses/%C3%96%2exyz", "C:\\My Courses\\\u00D6.xyz"},
      {"file://localhost/C:/100%/x%2", R"(C:\100%\x%2)"},
      {"FILE://server/share/x", R"(\\server\share\x)"},
      {"", ""},
  };
  for (const auto &[given, path] : cases)
    EXPECT_EQ(mPlatform->ToWindowsPath(given), path) << given;
}

TEST(RuntimeErrorTest, WordsOfTheStandardLibraryAreForNoUser) {
  EXPECT_EQ(DescriptionOf(RuntimeError(ErrorNumber::DiskFull, "no room")), "no room");
  EXPECT_EQ(DescriptionOf(std::out_of_range("basic_string::substr")), "Internal error");
  EXPECT_EQ(DescriptionOf(std::bad_alloc()), "Out of memory");
}

} // namespace

} // namespace turfdesk::test
