// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/posix/PosixFileService.h"
#include "platform/posix/TempFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace turfdesk {

namespace {

class FileServiceTest : public FilesTest {
protected:
  ChildProcesses mChildren;
  PosixFileService mService{mPaths, mChildren};
};

TEST_F(FileServiceTest, PathsFallIntoTheirParts) {
  struct Case {
    const char *path, *folder, *prefix, *file, *base, *extension;
  } const cases[] = {
      {"C:\\Games\\x.hlc", "C:\\Games", "C:\\Games\\", "x.hlc", "x", ".hlc"},
      {"C:\\x.tar.gz", "C:\\", "C:\\", "x.tar.gz", "x.tar", ".gz"},
      {"C:/a.b/file", "C:/a.b", "C:/a.b/", "file", "file", ""},
      {"C:\\Games\\\\x.", "C:\\Games", "C:\\Games\\\\", "x.", "x", ""},
      {"C:\\Games\\", "C:\\Games", "C:\\Games\\", "", "", ""},
      {"C:x.hlc", "C:", "C:", "x.hlc", "x", ".hlc"},
      {"\\x.hlc", "\\", "\\", "x.hlc", "x", ".hlc"},
      {"x.hlc", "", "", "x.hlc", "x", ".hlc"},
      {"", "", "", "", "", ""},
  };
  for (const Case &c : cases) {
    EXPECT_EQ(mService.GetPathPart(c.path), c.folder);
    EXPECT_EQ(mService.GetDirPrefix(c.path), c.prefix);
    EXPECT_EQ(mService.GetFilePart(c.path), c.file);
    EXPECT_EQ(mService.GetBaseName(c.path), c.base);
    EXPECT_EQ(mService.GetExtension(c.path), c.extension);
  }
}

TEST_F(FileServiceTest, IsValidFilenameTakesWhatWindowsCanCreate) {
  Put("Games/old.hlz", "");
  const std::string valid[] = {
      "C:\\Games\\new.hlz", "C:\\Games\\old.hlz", "c:/GAMES/new", "C:\\ new \u00FC.hlz",
      "C:\\.hidden",        "C:\\console.hlz",    "C:\\COM10",    "C:\\" + std::string(255, 'x')};
  for (const std::string &path : valid)
    EXPECT_TRUE(mService.IsValidFilename(path)) << path;
  const std::string invalid[] = {"",
                                 "new.hlz",
                                 "C:new.hlz",
                                 "\\Games\\new.hlz",
                                 "C:\\none\\new.hlz",
                                 "Q:\\new.hlz",
                                 "C:\\",
                                 "C:\\Games",
                                 "C:\\games\\",
                                 "C:\\new.hlz ",
                                 "C:\\new.",
                                 "C:\\..",
                                 "C:\\a<b",
                                 "C:\\a>b",
                                 "C:\\a\"b",
                                 "C:\\a|b",
                                 "C:\\a?b",
                                 "C:\\a*b",
                                 "C:\\a:b",
                                 "C:\\a\tb",
                                 "C:\\a\x7F",
                                 "C:\\a\xE9",
                                 "C:\\con",
                                 "C:\\Prn.hlz",
                                 "C:\\AUX .hlz",
                                 "C:\\NUL.tar.hlz",
                                 "C:\\com0",
                                 "C:\\LPT9.hlz",
                                 "C:\\COM\u00B2.hlz",
                                 "C:\\CONIN$",
                                 "C:\\conout$.hlz",
                                 "C:\\" + std::string(256, 'x'),
                                 "C:\\" + std::string(3000, 'x')};
  for (const std::string &path : invalid)
    EXPECT_FALSE(mService.IsValidFilename(path)) << path;
}

TEST_F(FileServiceTest, TellsFilesFromFolders) {
  Put("Games/x.hlc", "12345");
  mkfifo(Host("pipe").c_str(), 0600);
  std::filesystem::create_symlink("Games/x.hlc", Host("link"));
  std::filesystem::create_symlink("nowhere", Host("broken"));
  const auto kindOf = [this](const std::string &path) {
    return std::string(mService.FileExists(path) ? "file" : "") + (mService.DirExists(path) ? "folder" : "");
  };
  for (const char *file : {"C:\\Games\\x.hlc", "c:/GAMES/X.hlc", "C:\\link", "C:\\pipe"})
    EXPECT_EQ(kindOf(file), "file") << file;
  for (const char *folder : {"C:\\Games", "C:\\games\\", "C:", "Z:\\"})
    EXPECT_EQ(kindOf(folder), "folder") << folder;
  for (const char *nothing : {"", "C:\\broken", "C:\\none\\x", "Q:\\x", "C:\\a*", "x.hlc"})
    EXPECT_EQ(kindOf(nothing), "") << nothing;
  EXPECT_EQ(mService.GetFileSize("C:\\games\\X.HLC"), 5);
  for (const char *sizeless : {"", "C:\\Games", "C:\\pipe", "C:\\none", "Q:\\x"})
    EXPECT_EQ(mService.GetFileSize(sizeless), 0) << sizeless;
}

TEST_F(FileServiceTest, DeletesFilesButNothingProtected) {
  Put("x.hlc", "");
  Put("target", "");
  Put("locked", "");
  chmod(Host("locked").c_str(), 0444);
  std::filesystem::create_directory(Host("folder"));
  mkfifo(Host("pipe").c_str(), 0600);
  std::filesystem::create_symlink("target", Host("link"));
  std::filesystem::create_symlink("locked", Host("locked link"));
  const PathsByNumber cases = {{0, {"C:\\X.HLC", "C:\\link"}},
                               {52, {"C:\\a?"}},
                               {53, {"C:\\none"}},
                               {68, {"Q:\\x"}},
                               {75, {"C:\\locked", "C:\\folder", "C:\\pipe", "C:\\locked link", "C:"}},
                               {76, {"C:\\none\\x", ""}}};
  for (const auto &[number, paths] : cases)
    for (const std::string &path : paths) {
      EXPECT_EQ(mService.DeleteFile(path), number == 0) << path;
      EXPECT_EQ(mService.LastError(), number) << path;
      EXPECT_TRUE(number == 0 || mService.LastErrorText() == ErrorText(ErrorNumber{number}));
    }
  EXPECT_EQ(Entries(""), (std::vector<std::string>{"folder", "locked", "locked link", "pipe", "target"}));
}

// The child process has a child of its own, whose exit must leave the folder alone.
TEST_F(FileServiceTest, TheTempFolderLivesAsLongAsItsProcess) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    setenv("TMPDIR", Host("").c_str(), 1);
    const std::string folder = mService.GetTempFolder();
    Put("made", folder);
    const std::filesystem::path host = Host(folder.substr(3));
    std::filesystem::create_directories(host / "deep/down");
    std::filesystem::create_directory_symlink(Host("kept"), host / "deep/link");
    if (const pid_t grandchild = fork(); grandchild == 0)
      std::exit(0);
    else
      waitpid(grandchild, nullptr, 0);
    struct stat status;
    const bool isOurs = stat(host.c_str(), &status) == 0 && (status.st_mode & 0777) == 0700;
    std::exit(isOurs && mService.GetTempFolder() == folder && mService.DirExists(folder) ? 0 : 1);
  }
  Put("kept/x", "stays");
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(Content("made").starts_with("C:\\turfdesk-temp-")) << Content("made");
  EXPECT_EQ(Entries(""), (std::vector<std::string>{"kept", "made"}));
  EXPECT_EQ(Content("kept/x"), "stays");
}

// A folder that was just made could be one that its process has not locked yet, so they are made to look old.
TEST_F(FileServiceTest, WhatAKilledProcessLeftBehindIsRemovedByTheNext) {
  const std::string parent = Host("").string();
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    Put("killed", MakeTempFolder(parent));
    kill(getpid(), SIGKILL);
  }
  waitpid(child, nullptr, 0);
  const std::string ours = MakeTempFolder(parent);
  Put("turfdesk-temporary/x", "a user's own");
  const timespec longAgo[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  ASSERT_TRUE(std::filesystem::exists(Content("killed"))) << "it is young";
  for (const std::string &folder : {Content("killed"), ours, Host("turfdesk-temporary").string()})
    ASSERT_EQ(utimensat(AT_FDCWD, folder.c_str(), longAgo, 0), 0);

  MakeTempFolder(parent);
  EXPECT_FALSE(std::filesystem::exists(Content("killed")));
  EXPECT_TRUE(std::filesystem::exists(ours));
  EXPECT_EQ(Content("turfdesk-temporary/x"), "a user's own");
}

TEST_F(FileServiceTest, TheTempFolderIsOnADriveThatThereIs) {
  std::filesystem::remove(mHome / "drives/z:");
  const std::string folder = mService.GetTempFolder();
  EXPECT_TRUE(mService.DirExists(folder));
  EXPECT_TRUE(folder.starts_with("C:\\"));
  std::filesystem::remove(Host(folder.substr(3)));
  EXPECT_TRUE(mService.DirExists(mService.GetTempFolder())) << "after somebody swept it away";
  std::filesystem::remove(mHome / "drives/c:");
  EXPECT_EQ(NumberThrownBy([this] { mService.GetTempFolder(); }), 75);
}

TEST_F(FileServiceTest, DocumentsAreHandedToTheDesktop) {
  Put("bin/xdg-open",
      "#!/bin/sh\nprintf %s \"$1\" >\"${0%/*}/seen\"\ncase $1 in *missing*) exit 2;; *bad*) exit 4;; esac\n");
  chmod(Host("bin/xdg-open").c_str(), 0755);
  Put("Read me.txt", "");
  const std::string path = std::getenv("PATH");
  setenv("PATH", (Host("bin").string() + ":" + path).c_str(), 1);
  struct Case {
    const char *document;
    std::string seen;
    int number;
  } const cases[] = {
      {"C:\\read me.txt", Host("Read me.txt").string(), 0},
      {"https://host.example/a?b=c", "https://host.example/a?b=c", 0},
      {"http://host.example/missing", "http://host.example/missing", 53},
      {"http://host.example/bad", "http://host.example/bad", 75},
      {"C:\\none.txt", "", 53},
      {"-help", "", 76},
      {"-help:x", "", 76},
  };
  for (const Case &c : cases) {
    std::filesystem::remove(Host("bin/seen"));
    mService.OpenDocument(c.document);
    EXPECT_EQ(mService.LastError(), c.number) << c.document;
    EXPECT_EQ(Content("bin/seen"), c.seen);
  }
  setenv("PATH", Host("").c_str(), 1);
  mService.OpenDocument("https://host.example/");
  EXPECT_EQ(mService.LastError(), 53) << "no tool of the desktop";
  setenv("PATH", path.c_str(), 1);
}

} // namespace

} // namespace turfdesk
