// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "platform/posix/HomeFolder.h"

#include <algorithm>
#include <cstdlib>

namespace turfdesk::test {

namespace {

using std::filesystem::create_directories;
using std::filesystem::create_directory_symlink;
using std::filesystem::read_symlink;

std::string Backslashed(std::string hostPath) {
  std::ranges::replace(hostPath, '/', '\\');
  return hostPath;
}

class PathMapTest : public PlatformTest {
protected:
  std::filesystem::path mDrives = mHome.Path() / "drives";
  std::unique_ptr<FileService> mService = mPlatform->CreateFileService();
};

TEST_F(PathMapTest, HomeIsMadeForItsOwnerAloneAndItsDrivesOnce) {
  const std::filesystem::path home = mHome.Path() / "data" / "turfdesk";
  MakeHome(home.string());
  for (const auto &folder : {home, home.parent_path()})
    EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all) << folder;
  EXPECT_EQ(read_symlink(home / "drives/c:"), "../drive_c");
  EXPECT_EQ(read_symlink(home / "drives/z:"), "/");
  std::filesystem::remove(home / "drives/z:");
  EXPECT_EQ(MakePlatform(home.string())->Folders().Drives(), Texts{"C:"}) << "what the user took away stays away";
}

TEST_F(PathMapTest, HomeThatIsAFileIsAnError) {
  Put(R"(C:\file)");
  for (const char *home : {R"(C:\file)", R"(C:\file\home)"})
    try {
      MakeHome(Host(home).string());
      ADD_FAILURE() << home;
    } catch (const RuntimeError &error) {
      EXPECT_EQ(error.Number(), ErrorNumber::PathNotFound);
      EXPECT_EQ(error.Description(), "The folder for the program's own files cannot be used.\r\n\r\n" +
                                         Host(home).string() + "\r\n\r\nPath not found");
    }
}

TEST(HomeFolder, IsTheFirstThatIsSet) {
  const struct {
    const char *chosen, *own, *data, *expected;
  } cases[] = {{"/chosen/", "/own", "/data", "/chosen"},
               {"", "/own", "/data", "/own"},
               {"", "", "/data", "/data/turfdesk"},
               {"", "", "relative", "/user/.local/share/turfdesk"},
               {"", "", "", "/user/.local/share/turfdesk"}};
  setenv("HOME", "/user", 1);
  for (const auto &c : cases) {
    setenv("TURFDESK_HOME", c.own, 1);
    setenv("XDG_DATA_HOME", c.data, 1);
    EXPECT_EQ(HomeFolder(c.chosen), c.expected);
  }
}

TEST_F(PathMapTest, FolderThatIsKnownByTwoPathsShowsAChangeOfCaseByBoth) {
  Put(R"(C:\Games\Links.hlc)");
  create_directory_symlink("Games", Host(R"(C:\Same)"));
  EXPECT_TRUE(mService->FileExists(R"(C:\Games\LINKS.hlc)"));
  Put(R"(C:\Games\links.hlc)");
  std::filesystem::remove(Host(R"(C:\Games)") / "Links.hlc");
  for (const char *path : {R"(C:\Same\LINKS.hlc)", R"(C:\Same\LINKS.hlc)", R"(C:\Games\LINKS.hlc)"})
    EXPECT_TRUE(mService->FileExists(path)) << path;
}

TEST_F(PathMapTest, WindowsPathsLeadToHostPaths) {
  for (const char *name : {"Links.hlc", "links.hlc", "Caf\u00E9.hlc"})
    Put(std::string(R"(C:\Games\)") + name);
  const std::filesystem::path root = DriveOf(mHome.Path());
  const std::pair<const char *, std::filesystem::path> cases[] = {
      {"C:", root},
      {"c:\\", root},
      {R"(C:\Games\links.hlc)", root / "Games/links.hlc"},
      {R"(C:\GAMES\LINKS.HLC)", root / "Games/Links.hlc"},
      {"c:/games\\\\.\\Links.hlc", root / "Games/Links.hlc"},
      {"C:\\games\\CAF\u00C9.hlc", root / "Games/Caf\u00E9.hlc"},
      {"C:\\games\\CAFE\u0301.hlc", root / "Games/CAFE\u0301.hlc"},
      {R"(C:\none\..\Games\..\..\..\Games)", root / "Games"},
      {R"(Z:\etc\passwd)", "/etc/passwd"},
      {R"(C:\games\New\x.hlc)", root / "Games/New/x.hlc"},
  };
  for (const auto &[windowsPath, hostPath] : cases)
    EXPECT_EQ(mPlatform->ToHostPath(windowsPath), hostPath.string()) << windowsPath;
}

TEST_F(PathMapTest, WhatTheHostCannotReachHasItsNumber) {
  Put(R"(C:\file)");
  create_directory_symlink(Host(R"(C:\file)"), mDrives / "f:");
  std::string longPath = "C:";
  while (longPath.size() < 5000)
    longPath += "\\folder";
  for (const std::string &path :
       {longPath, longPath.substr(0, 3001), std::string(R"(\\server\share\x)"), std::string("F:")})
    EXPECT_EQ(NumberThrownBy([&] { mPlatform->Folders().Subfolders(path); }), 76) << path;
}

TEST_F(PathMapTest, HostPathsBecomeWindowsPathsByTheClosestDrive) {
  Put(R"(C:\Games\x.hlc)");
  const TempFolder outside;
  const std::filesystem::path &folder = outside.Path();
  create_directories(folder / "disk/inner");
  create_directories(folder / "diskette");
  create_directory_symlink(folder / "disk", folder / "alias");
  create_directory_symlink(Host(R"(C:\Games)"), folder / "disk/ours");
  create_directory_symlink("diskette", folder / "other");
  std::filesystem::create_symlink(Host(R"(C:\Games\x.hlc)"), folder / "disk/link.hlc");
  create_directory_symlink(folder / "disk", mDrives / "d:");
  create_directory_symlink(folder / "disk", mDrives / "e:");
  std::filesystem::current_path(Host(R"(C:\Games)"));
  const std::pair<std::filesystem::path, std::string> cases[] = {
      {Host(R"(C:\Games\x.hlc)"), R"(C:\Games\x.hlc)"},
      {DriveOf(mHome.Path()) / "", "C:\\"},
      {"x.hlc", R"(C:\Games\x.hlc)"},
      {"../new/x", R"(C:\new\x)"},
      {"..", "C:\\"},
      {mDrives / "c:/Games", R"(C:\Games)"},
      {folder / "disk//./inner/", R"(D:\inner)"},
      {folder / "disk/ours/x.hlc", R"(D:\ours\x.hlc)"},
      {folder / "disk/link.hlc", R"(D:\link.hlc)"},
      {folder / "alias/inner/x", R"(D:\inner\x)"},
      {folder / "diskette/x", "Z:" + Backslashed(folder.string()) + "\\diskette\\x"},
      {folder / "other/x", "Z:" + Backslashed(folder.string()) + "\\other\\x"},
      {"/", "Z:\\"},
      {"/no/such", R"(Z:\no\such)"},
      {folder / "disk/a?b", ""},
      {folder / "disk/\xC3", ""},
      {folder / "disk/ours/../x.hlc", R"(C:\x.hlc)"},
      {folder / "alias/../x", "Z:" + Backslashed(folder.string()) + "\\x"},
      {folder / "disk/none/../y", R"(D:\y)"},
      {"file://" + (folder / "disk/a%20b").string(), R"(D:\a b)"},
      {"x:y", ""},
  };
  for (const auto &[hostPath, windowsPath] : cases)
    EXPECT_EQ(mPlatform->ToWindowsPath(hostPath.string()), windowsPath) << hostPath;
  EXPECT_EQ(mPlatform->ToWindowsPath("file:///etc/pass%00wd"), "");
  std::filesystem::remove(mDrives / "z:");
  EXPECT_EQ(mPlatform->ToWindowsPath("/etc/passwd"), "");
  create_directories(folder / "gone");
  std::filesystem::current_path(folder / "gone");
  std::filesystem::remove(folder / "gone");
  EXPECT_EQ(mPlatform->ToWindowsPath("x"), "");
}

TEST_F(PathMapTest, ALinkMayLeadDeeperThanAPathCanSay) {
  std::filesystem::current_path(mHome.Path());
  const std::string name(200, 'n');
  std::filesystem::path half;
  for (int i = 0; i < 12; ++i)
    half /= name;
  for (const char *link : {"first", "second"}) {
    create_directories(half);
    create_directory_symlink(half, link);
    std::filesystem::current_path(link);
  }
  EXPECT_EQ(mPlatform->ToWindowsPath((mHome.Path() / "first/second/x.hlc").string()),
            Backslashed("Z:" + (mHome.Path() / "first").string()) + "\\second\\x.hlc");
}

// Names of a folder are remembered while its time stands still, so the folder is given one that lies long ago.
TEST_F(PathMapTest, ChangesOfAFolderAreSeenAtOnce) {
  Put(R"(C:\Games\First.hlc)");
  MakeOld(Host(R"(C:\Games)"));
  EXPECT_TRUE(mService->FileExists(R"(C:\Games\FIRST.hlc)"));
  EXPECT_FALSE(mService->FileExists(R"(C:\Games\SECOND.hlc)"));
  Put(R"(C:\Games\Second.hlc)");
  std::filesystem::remove(Host(R"(C:\Games\First.hlc)"));
  EXPECT_TRUE(mService->FileExists(R"(C:\Games\SECOND.hlc)"));
  EXPECT_FALSE(mService->FileExists(R"(C:\Games\FIRST.hlc)"));
}

TEST_F(PathMapTest, DrivesAreLinksOfOneLetter) {
  create_directory_symlink(mHome.Path(), mDrives / "D:");
  create_directories(mDrives / "noise");
  EXPECT_EQ(mPlatform->Folders().Drives(), (Texts{"C:", "D:", "Z:"}));
  EXPECT_EQ(mPlatform->Folders().CanonicalFolder("d:"), "D:\\");
  std::filesystem::remove_all(mDrives);
  EXPECT_THROW(mPlatform->CreateFileService(), RuntimeError) << "without a drive there are no files";
}

} // namespace

} // namespace turfdesk::test
