// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/NamePatterns.h"
#include "platform/posix/PosixFolderReader.h"

#include <sys/stat.h>
#include <unistd.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

class FolderReaderTest : public FilesTest {
protected:
  PosixFolderReader mReader{mPaths};
};

TEST(NamePatterns, MatchAsTheFileListDoes) {
  struct Case {
    const char *pattern, *name;
    bool matches;
  } const cases[] = {
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
      {"*", "x", true},
      {"x", "x", true},
      {"x?", "x", false},
      {"", "x", false},
      {" ; ", "x", false},
  };
  for (const Case &c : cases)
    EXPECT_EQ(NamePatterns(c.pattern).Match(c.name), c.matches) << c.pattern << " " << c.name;
}

TEST_F(FolderReaderTest, ListsWhatAWindowsPathCanName) {
  for (const char *file : {"b.hlc", "A.hlb", "\u00C4.hlc", "c.HLC", ".hidden.hlc", "a?.hlc", "nul.hlc", "x.hlc.",
                           "\xFF.hlc", "note.txt", "Folder.hlc/x", "sub/x", ".git/x", "tail /x"})
    Put(file, "");
  std::filesystem::create_symlink("b.hlc", Host("link.hlc"));
  std::filesystem::create_directory_symlink("sub", Host("Alias"));
  std::filesystem::create_symlink("nowhere", Host("broken.hlc"));
  mkfifo(Host("pipe.hlc").c_str(), 0600);
  EXPECT_EQ(mReader.Files("C:\\", "*.hlc;*.hlb"), (Texts{"A.hlb", "b.hlc", "c.HLC", "link.hlc", "\u00C4.hlc"}));
  EXPECT_EQ(mReader.Subfolders("c:"), (Texts{"Alias", "Folder.hlc", "sub"}));
}

TEST_F(FolderReaderTest, DrivesAreListedReadyOrNot) {
  std::filesystem::create_directory_symlink(mFolder / "gone", mHome / "drives/e:");
  std::filesystem::create_directory_symlink(mFolder, mHome / "drives/D:");
  Put("../drives/noise", "");
  EXPECT_EQ(mReader.Drives(), (Texts{"C:", "D:", "E:", "Z:"}));
  EXPECT_EQ(mReader.CanonicalFolder("d:"), "D:\\");
}

TEST_F(FolderReaderTest, FoldersHaveOneCanonicalPath) {
  Put("Games/Old/x", "");
  for (const char *path : {"C:\\Games\\Old", "c:/GAMES/old/", "C:\\games\\.\\x\\..\\OLD\\\\"})
    EXPECT_EQ(mReader.CanonicalFolder(path), "C:\\Games\\Old");
  EXPECT_EQ(mReader.CanonicalFolder("c:"), "C:\\");
  EXPECT_EQ(mReader.CanonicalFolder("C:\\Games\\.."), "C:\\");
}

TEST_F(FolderReaderTest, FailuresHaveTheirNumbers) {
  Put("file", "");
  std::filesystem::create_directory_symlink(mFolder / "gone", mHome / "drives/e:");
  std::filesystem::create_symlink(Host("file"), mHome / "drives/f:");
  const PathsByNumber cases = {
      {68, {"Q:\\"}}, {71, {"E:", "E:\\x"}}, {76, {"C:\\none", "C:\\file", "F:", "", "x", "C:\\a*b"}}};
  for (const auto &[number, folders] : cases)
    for (const std::string &folder : folders) {
      EXPECT_EQ(NumberThrownBy([&] { mReader.Subfolders(folder); }), number) << folder;
      EXPECT_EQ(NumberThrownBy([&] { mReader.Files(folder, "*"); }), number) << folder;
      EXPECT_EQ(NumberThrownBy([&] { mReader.CanonicalFolder(folder); }), number) << folder;
    }
}

TEST_F(FolderReaderTest, ListsStartWhereTheProgramWasStarted) {
  Put("Games/x", "");
  std::filesystem::current_path(Host("Games"));
  EXPECT_EQ(mReader.StartFolder(), "C:\\Games");
  std::filesystem::current_path("/");
  std::filesystem::remove(mHome / "drives/z:");
  EXPECT_EQ(mReader.StartFolder(), "C:\\");
}

TEST_F(FolderReaderTest, ListsDoNotStartInAFolderThatMayNotBeRead) {
  using std::filesystem::perms;
  Put("Games/x", "");
  std::filesystem::current_path(Host("Games"));
  for (auto folder = mHome / "drives" / "c:"; folder != mFolder.parent_path(); folder = folder.parent_path())
    std::filesystem::permissions(folder, perms{0755});
  std::filesystem::permissions(Host("Games"), perms::owner_exec);
  // Nothing is closed to root.
  const uid_t user = geteuid();
  constexpr uid_t nobody = 65534;
  ASSERT_TRUE(user != 0 || seteuid(nobody) == 0);
  const std::string start = mReader.StartFolder();
  ASSERT_EQ(user == 0 ? seteuid(user) : 0, 0);
  std::filesystem::permissions(Host("Games"), perms::owner_all);
  EXPECT_EQ(start, "C:\\");
}

} // namespace

} // namespace turfdesk
