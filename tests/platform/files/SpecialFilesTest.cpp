// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include <sys/stat.h>
#include <unistd.h>

namespace turfdesk::test {

namespace {

using std::filesystem::perms;

/// Links, pipes, devices and names that Windows knows nothing of.
class SpecialFilesTest : public PlatformTest {
protected:
  SpecialFilesTest() {
    Put(R"(C:\target)", "content");
    Put(R"(C:\locked)");
    SetReadOnly(Host(R"(C:\locked)"), true);
    for (const auto &[link, target] : {std::pair{"link", "target"}, {"locked link", "locked"}, {"broken", "nowhere/x"}})
      std::filesystem::create_symlink(target, DriveOf(mHome.Path()) / link);
    mkfifo(Host(R"(C:\pipe)").c_str(), 0600);
  }

  int Copy(const std::string &from, const std::string &to) {
    return NumberThrownBy([&] { CopyNow(mPlatform->Copier(), from, to, {}); });
  }

  perms PermissionsOf(const std::string &path) const { return std::filesystem::status(Host(path)).permissions(); }

  std::unique_ptr<FileService> mService = mPlatform->CreateFileService();
};

TEST_F(SpecialFilesTest, AreFilesButOnlyALinkToAFileIsUsedAsOne) {
  for (const char *path : {R"(C:\link)", R"(C:\pipe)"})
    EXPECT_TRUE(mService->FileExists(path)) << path;
  EXPECT_FALSE(mService->FileExists(R"(C:\broken)"));
  EXPECT_EQ(mService->GetFileSize(R"(C:\link)"), 7);
  EXPECT_EQ(mService->GetFileSize(R"(C:\pipe)"), 0);
  EXPECT_EQ(mPlatform->Files().OpenForBinaryRead(R"(C:\broken)"), nullptr);
  EXPECT_EQ(mPlatform->NewFiles().FreeBytes(R"(Z:\proc)"), 0U);
  for (const char *path : {R"(C:\pipe)", R"(Z:\dev\zero)"}) {
    EXPECT_EQ(NumberThrownBy([&] { mPlatform->Files().OpenForBinaryRead(path); }), 75) << path;
    EXPECT_EQ(Copy(path, R"(C:\new)"), 75) << path;
    EXPECT_EQ(Copy(R"(C:\target)", path), 75) << path;
  }
  for (const char *path : {R"(C:\pipe)", R"(C:\locked link)"}) {
    EXPECT_FALSE(mService->DeleteFile(path)) << path;
    EXPECT_EQ(mService->LastError(), 75) << path;
  }
  EXPECT_TRUE(mService->DeleteFile(R"(C:\link)"));
  EXPECT_EQ(Entries("C:\\"), (Texts{"broken", "locked", "locked link", "pipe", "target"}));
}

TEST_F(SpecialFilesTest, ALinkIsReplacedAndWhatItLeadsToStays) {
  Put(R"(C:\new)", "new");
  Put(R"(C:\folder\x)");
  std::filesystem::create_directory_symlink("folder", Host(R"(C:\folder link)"));
  for (const char *link : {R"(C:\link)", R"(C:\locked link)", R"(C:\broken)"}) {
    EXPECT_EQ(Copy(R"(C:\new)", link), 0) << link;
    EXPECT_FALSE(std::filesystem::is_symlink(Host(link))) << link;
    EXPECT_EQ(Content(link), "new");
    EXPECT_EQ(PermissionsOf(link), PermissionsOf(R"(C:\new)")) << link;
  }
  EXPECT_EQ(Copy(R"(C:\new)", R"(C:\folder link)"), 75);
  EXPECT_EQ(Content(R"(C:\target)") + "|" + Content(R"(C:\locked)"), "content|");
  EXPECT_EQ(Entries("C:\\"),
            (Texts{"broken", "folder", "folder link", "link", "locked", "locked link", "new", "pipe", "target"}));
}

// As in the folder for temporary files: everybody may write there, and nobody may touch what is another's.
TEST_F(SpecialFilesTest, AStrangersLinkLeadsNowhere) {
  if (geteuid() != 0)
    GTEST_SKIP() << "There is only one user here.";
  constexpr uid_t nobody = 65534;
  constexpr uid_t stranger = 12345;
  Put(R"(C:\new)", "new");
  Put(R"(C:\sticky\mine)", "precious");
  std::filesystem::create_symlink("mine", Host(R"(C:\sticky\x)"));
  std::filesystem::create_symlink("mine", Host(R"(C:\sticky\own)"));
  ASSERT_EQ(lchown(Host(R"(C:\sticky\x)").c_str(), stranger, stranger), 0);
  for (const char *own : {R"(C:\sticky\own)", R"(C:\sticky\mine)"})
    ASSERT_EQ(lchown(Host(own).c_str(), nobody, nobody), 0);
  for (const auto &folder : {mHome.Path(), mHome.Path() / "drives", DriveOf(mHome.Path())})
    std::filesystem::permissions(folder, perms{0755});
  std::filesystem::permissions(Host(R"(C:\sticky)"), perms{01777});
  for (const auto &[user, foreign] : {std::pair{nobody, 75}, {uid_t{0}, 0}}) {
    ASSERT_EQ(seteuid(user), 0);
    const int replacedForeign = Copy(R"(C:\new)", R"(C:\sticky\x)");
    const int replacedOwn = Copy(R"(C:\new)", R"(C:\sticky\own)");
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_EQ(replacedForeign, foreign) << user;
    EXPECT_EQ(replacedOwn, 0) << user;
    EXPECT_EQ(std::filesystem::is_symlink(Host(R"(C:\sticky\x)")), foreign != 0) << user;
    EXPECT_EQ(Content(R"(C:\sticky\mine)"), "precious") << user;
  }
}

TEST_F(SpecialFilesTest, WhatIsReplacedKeepsItsPermissions) {
  Put(R"(C:\new)", "new");
  std::filesystem::permissions(Host(R"(C:\target)"), perms{0604});
  EXPECT_EQ(Copy(R"(C:\new)", R"(C:\target)"), 0);
  EXPECT_EQ(PermissionsOf(R"(C:\target)"), perms{0604});
  std::filesystem::permissions(Host(R"(C:\new)"), perms{0440});
  EXPECT_EQ(Copy(R"(C:\new)", R"(C:\copy)"), 0);
  EXPECT_EQ(PermissionsOf(R"(C:\copy)") & perms::owner_all, perms::owner_read | perms::owner_write);
}

TEST_F(SpecialFilesTest, ListsHaveWhatAWindowsPathCanName) {
  const std::filesystem::path root = DriveOf(mHome.Path());
  for (const char *name :
       {".hidden.hlc", "a?.hlc", "nul.hlc", "x.hlc.", "\xFF.hlc", "b.hlc", ".git/x", "tail /x", "sub/x"}) {
    std::filesystem::create_directories((root / name).parent_path());
    std::filesystem::copy_file(root / "target", root / name);
  }
  std::filesystem::create_symlink("target", root / "link.hlc");
  std::filesystem::create_directory_symlink("sub", root / "Alias");
  std::filesystem::create_symlink("nowhere", root / "broken.hlc");
  mkfifo((root / "pipe.hlc").c_str(), 0600);
  EXPECT_EQ(mPlatform->Folders().Files("C:\\", "*.hlc"), (Texts{"b.hlc", "link.hlc"}));
  EXPECT_EQ(mPlatform->Folders().Subfolders("C:\\"), (Texts{"Alias", "sub"}));
}

TEST_F(SpecialFilesTest, ListsStartInAFolderThatMayBeReadAndAFileInAClosedOneMayBeThere) {
  Put(R"(C:\Games\x)");
  std::filesystem::current_path(Host(R"(C:\Games)"));
  for (const auto &folder : {mHome.Path(), mHome.Path() / "drives", DriveOf(mHome.Path())})
    std::filesystem::permissions(folder, perms{0755});
  std::filesystem::permissions(Host(R"(C:\Games)"), perms::owner_exec);
  // Nothing is closed to root.
  const uid_t user = geteuid();
  constexpr uid_t nobody = 65534;
  ASSERT_TRUE(user != 0 || seteuid(nobody) == 0);
  const std::string start = mPlatform->Folders().StartFolder();
  const bool exists = mService->FileExists(R"(C:\Games\x)");
  const bool mayExist = mService->FileMayExist(R"(C:\Games\x)");
  ASSERT_EQ(user == 0 ? seteuid(user) : 0, 0);
  std::filesystem::permissions(Host(R"(C:\Games)"), perms::owner_all);
  EXPECT_EQ(start, "C:\\");
  EXPECT_EQ((std::pair{exists, mayExist}), (std::pair{false, true}));
  std::filesystem::current_path("/");
  std::filesystem::remove(mHome.Path() / "drives/z:");
  EXPECT_EQ(mPlatform->Folders().StartFolder(), "C:\\");
}

} // namespace

} // namespace turfdesk::test
