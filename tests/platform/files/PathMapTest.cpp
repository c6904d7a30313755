// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/posix/HomeFolder.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>

namespace turfdesk {

namespace {

std::string Backslashed(std::string hostPath) {
  std::replace(hostPath.begin(), hostPath.end(), '/', '\\');
  return hostPath;
}

class PathMapTest : public FilesTest {
protected:
  /// The number that using the path as an existing file would give, or 0.
  int NumberFor(const std::string &path) const {
    std::string hostPath;
    return NumberThrownBy([&] {
      if (const int error = mPaths.HostForm(path, hostPath); error != 0)
        ThrowSystemError(error);
    });
  }

  void Link(const char *drive, const std::filesystem::path &target) const {
    std::filesystem::create_symlink(target, mHome / "drives" / drive);
  }
};

TEST_F(PathMapTest, HomeIsMadeForItsOwnerAloneAndItsDrivesOnce) {
  for (const auto &folder : {mHome, mHome.parent_path()})
    EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all) << folder;
  EXPECT_EQ(std::filesystem::read_symlink(mHome / "drives/c:"), "../drive_c");
  EXPECT_EQ(std::filesystem::read_symlink(mHome / "drives/z:"), "/");

  std::filesystem::remove(mHome / "drives/z:");
  MakeHome(mHome.string());
  ASSERT_EQ(mPaths.Drives().size(), 1U);
  EXPECT_EQ(mPaths.Drives()[0].letter, 'C');
}

TEST_F(PathMapTest, HomeThatIsAFileIsAnError) {
  Put("file", "");
  for (const char *home : {"file", "file/home"})
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
  struct Case {
    const char *chosen, *own, *data, *expected;
  } const cases[] = {{"/chosen/", "/own", "/data", "/chosen"},
                     {"", "/own", "/data", "/own"},
                     {"", "", "/data", "/data/turfdesk"},
                     {"", "", "relative", "/user/.local/share/turfdesk"},
                     {"", "", "", "/user/.local/share/turfdesk"}};
  setenv("HOME", "/user", 1);
  for (const Case &c : cases) {
    setenv("TURFDESK_HOME", c.own, 1);
    setenv("XDG_DATA_HOME", c.data, 1);
    EXPECT_EQ(HomeFolder(c.chosen), c.expected);
  }
}

TEST_F(PathMapTest, WindowsPathsLeadToHostPaths) {
  Put("Games/Links.hlc", "");
  Put("Games/links.hlc", "");
  Put("Games/Caf\u00E9.hlc", "");
  struct Case {
    const char *windowsPath;
    std::filesystem::path hostPath;
  } const cases[] = {
      {"C:", Host("").parent_path()},
      {"c:\\", Host("").parent_path()},
      {"C:\\Games\\links.hlc", Host("Games/links.hlc")},
      {"C:\\GAMES\\LINKS.HLC", Host("Games/Links.hlc")},
      {"c:/games\\\\.\\Links.hlc", Host("Games/Links.hlc")},
      {"C:\\games\\CAFE\u0301.hlc", Host("Games/Caf\u00E9.hlc")},
      {"C:\\none\\..\\Games\\..\\..\\..\\Games", Host("Games")},
      {"Z:\\etc\\passwd", "/etc/passwd"},
      {"C:\\games\\New\\x.hlc", Host("Games/New/x.hlc")},
  };
  for (const Case &c : cases) {
    std::string hostPath;
    mPaths.HostForm(c.windowsPath, hostPath);
    EXPECT_EQ(hostPath, c.hostPath.string()) << c.windowsPath;
  }
}

TEST_F(PathMapTest, WhatCannotBeReachedHasItsNumber) {
  Put("file", "");
  Link("d:", mFolder / "gone");
  const std::string longPath = [] {
    std::string path = "C:";
    while (path.size() < 3000)
      path += "\\folder";
    return path;
  }();
  const PathsByNumber cases = {{0, {"C:\\FILE", "C:"}},
                               {52,
                                {"C:\\a*b", "C:\\a:b", "C:\\fi\x01le", "C:\\file.", "C:\\nul.txt\\x", "C:\\\xFF",
                                 "C:\\" + std::string(256, 'x')}},
                               {53, {"C:\\missing"}},
                               {68, {"Q:\\x", "Q:"}},
                               {71, {"D:\\x", "D:"}},
                               {76,
                                {"C:\\missing\\file", "C:\\file\\x", "", "file", "C:file", "\\file",
                                 "\\\\server\\share\\x", "1:\\file", longPath, longPath + longPath.substr(2)}}};
  for (const auto &[number, paths] : cases)
    for (const std::string &path : paths)
      EXPECT_EQ(NumberFor(path), number) << path;
}

TEST_F(PathMapTest, HostPathsBecomeWindowsPathsByTheClosestDrive) {
  Put("Games/x.hlc", "");
  std::filesystem::create_directories(mFolder / "disk/inner");
  std::filesystem::create_directory_symlink(mFolder / "disk", mFolder / "alias");
  std::filesystem::create_directory_symlink(Host("Games"), mFolder / "disk/ours");
  std::filesystem::create_directory(mFolder / "diskette");
  std::filesystem::create_directory_symlink("diskette", mFolder / "other");
  std::filesystem::create_symlink(Host("Games/x.hlc"), mFolder / "disk/link.hlc");
  Link("d:", mFolder / "disk");
  Link("e:", mFolder / "disk");
  std::filesystem::current_path(Host("Games"));
  const std::string folder = mFolder.string();
  struct Case {
    std::string hostPath, windowsPath;
  } const cases[] = {
      {Host("Games/x.hlc").string(), "C:\\Games\\x.hlc"},
      {Host("").string(), "C:\\"},
      {"x.hlc", "C:\\Games\\x.hlc"},
      {"../new/x", "C:\\new\\x"},
      {"..", "C:\\"},
      {(mHome / "drives/c:/Games").string(), "C:\\Games"},
      {folder + "/disk//./inner/", "D:\\inner"},
      {folder + "/disk/ours/x.hlc", "D:\\ours\\x.hlc"},
      {folder + "/disk/link.hlc", "D:\\link.hlc"},
      {folder + "/alias/inner/x", "D:\\inner\\x"},
      {folder + "/diskette/x", "Z:" + Backslashed(folder) + "\\diskette\\x"},
      {folder + "/other/x", "Z:" + Backslashed(folder) + "\\other\\x"},
      {"/", "Z:\\"},
      {"/no/such", "Z:\\no\\such"},
      {folder + "/disk/a?b", ""},
      {folder + "/disk/\xC3", ""},
  };
  for (const Case &c : cases)
    EXPECT_EQ(mPaths.ToWindows(c.hostPath), c.windowsPath) << c.hostPath;
  std::filesystem::remove(mHome / "drives/z:");
  EXPECT_EQ(mPaths.ToWindows("/etc/passwd"), "");
}

// Names of a folder are remembered while its time stands still, so the folder is given one that lies long ago.
TEST_F(PathMapTest, ChangesOfAFolderAreSeenAtOnce) {
  Put("Games/First.hlc", "");
  const timespec longAgo[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, Host("Games").c_str(), longAgo, 0), 0);
  EXPECT_EQ(NumberFor("C:\\Games\\FIRST.hlc"), 0);
  EXPECT_EQ(NumberFor("C:\\Games\\SECOND.hlc"), 53);
  Put("Games/Second.hlc", "");
  std::filesystem::remove(Host("Games/First.hlc"));
  EXPECT_EQ(NumberFor("C:\\Games\\SECOND.hlc"), 0);
  EXPECT_EQ(NumberFor("C:\\Games\\FIRST.hlc"), 53);
}

} // namespace

} // namespace turfdesk
