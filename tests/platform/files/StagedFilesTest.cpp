// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"
#include "common/InjectedFault.h"

#include "platform/posix/PosixStagedFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace turfdesk {

namespace {

class StagedFilesTest : public FilesTest {
protected:
  static void Write(StagedFile &file, std::string_view text) {
    file.Write({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
  }

  PosixStagedFiles mFiles{mPaths};
};

TEST_F(StagedFilesTest, AFileAppearsWholeAndOnlyWhenItIsCommitted) {
  for (const bool flush : {false, true}) {
    Put("Games/X.hlz", "old");
    const auto file = mFiles.Create("C:\\games\\x.hlz", false);
    Write(*file, "0123456789");
    file->Seek(2);
    Write(*file, "ab");
    EXPECT_EQ(file->Tell(), 4U);
    file->SetModificationTime(1'000'000'000);
    EXPECT_EQ(Content("Games/X.hlz"), "old");
    file->Commit(flush);
    EXPECT_EQ(Content("Games/X.hlz"), "01ab456789");
    struct stat status;
    ASSERT_EQ(stat(Host("Games/X.hlz").c_str(), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 1'000'000'000);
    EXPECT_EQ(Entries("Games"), std::vector<std::string>{"X.hlz"});
  }
}

TEST_F(StagedFilesTest, WithoutCommitNothingStays) {
  Put("Games/x", "old");
  for (const int unnamedFiles : {0, EOPNOTSUPP}) {
    const InjectedFault fault(unnamedFiles == 0 ? "" : "openat unnamed", unnamedFiles);
    Write(*mFiles.Create("C:\\Games\\x", false), "new");
    Write(*mFiles.Create("C:\\Games\\new\\deep\\y", true), "new");
    EXPECT_EQ(Entries("Games"), std::vector<std::string>{"x"});
  }
  EXPECT_EQ(Content("Games/x"), "old");
}

TEST_F(StagedFilesTest, MissingFoldersAreMadeOnRequest) {
  std::filesystem::create_directory(Host("Games"));
  const auto file = mFiles.Create("C:\\GAMES\\New\\Deep\\x", true);
  Write(*file, "content");
  file->Commit(true);
  EXPECT_EQ(Content("Games/New/Deep/x"), "content");
}

TEST_F(StagedFilesTest, RefusalsHaveTheirNumbers) {
  Put("locked", "");
  chmod(Host("locked").c_str(), 0444);
  std::filesystem::create_directory_symlink(Host("gone"), Host("broken"));
  std::filesystem::create_directory_symlink(mFolder / "gone", mHome / "drives/e:");
  const PathsByNumber cases = {{52, {"C:\\none\\x?", "C:\\.turfdesk-abcdef.tmp"}},
                               {68, {"Q:\\x"}},
                               {71, {"E:\\x", "E:\\x\\y"}},
                               {75, {"C:\\locked", "C:\\"}},
                               {76, {"C:\\broken\\x", "C:\\locked\\x", "x"}}};
  for (const bool makeFolders : {false, true})
    for (const auto &[number, paths] : cases)
      for (const std::string &path : paths)
        EXPECT_EQ(NumberThrownBy([&] { mFiles.Create(path, makeFolders); }), number) << path;
  EXPECT_EQ(NumberThrownBy([&] { mFiles.Create("C:\\none\\x", false); }), 76);
  EXPECT_EQ(Entries(""), (std::vector<std::string>{"broken", "locked"}));
}

TEST_F(StagedFilesTest, AFullDiskIsToldAtTheWrite) {
  const auto file = mFiles.Create("C:\\x", false);
  const InjectedFault fault("pwrite", ENOSPC);
  EXPECT_EQ(NumberThrownBy([&] { Write(*file, "x"); }), 61);
}

TEST_F(StagedFilesTest, AFailureOfTheVeryLastFlushLeavesNoNewFileButAWholeReplacedOne) {
  Put("Games/old", "old");
  for (const char *path : {"C:\\Games\\new", "C:\\Games\\old"}) {
    const InjectedFault fault(Fault{.calls = {"fsync"}, .error = EIO, .first = 2});
    const auto file = mFiles.Create(path, false);
    Write(*file, "new content");
    EXPECT_EQ(NumberThrownBy([&] { file->Commit(true); }), 57);
  }
  EXPECT_EQ(Entries("Games"), std::vector<std::string>{"old"});
  EXPECT_EQ(Content("Games/old"), "new content");
}

// All look old, as if nobody had touched them for long.
TEST_F(StagedFilesTest, WhatAKilledProgramLeftIsRemovedByTheNextWriteInTheFolder) {
  const InjectedFault noUnnamedFiles("openat unnamed", EOPNOTSUPP);
  Put("Games/.turfdesk-notes.tmp", "a user's own");
  const pid_t child = fork();
  if (child == 0) {
    Write(*mFiles.Create("C:\\Games\\x", false).release(), "half a file");
    kill(getpid(), SIGKILL);
  }
  waitpid(child, nullptr, 0);
  const auto atWork = mFiles.Create("C:\\Games\\y", false);
  Write(*atWork, "whole");
  ASSERT_EQ(Entries("Games").size(), 3U);
  const timespec longAgo[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  for (const std::string &name : Entries("Games"))
    ASSERT_EQ(utimensat(AT_FDCWD, Host("Games/" + name).c_str(), longAgo, 0), 0);

  mFiles.Create("C:\\Games\\z", false);
  EXPECT_EQ(Entries("Games").size(), 2U) << "one was left behind";
  atWork->Commit(true);
  EXPECT_EQ(Entries("Games"), (std::vector<std::string>{".turfdesk-notes.tmp", "y"}));
}

TEST_F(StagedFilesTest, FreeBytesAreThoseOfTheFoldersDisk) {
  EXPECT_GT(mFiles.FreeBytes("C:\\"), 0U);
  EXPECT_EQ(mFiles.FreeBytes("Z:\\proc"), 0U);
  EXPECT_EQ(NumberThrownBy([this] { mFiles.FreeBytes("C:\\none"); }), 76);
  EXPECT_EQ(NumberThrownBy([this] { mFiles.FreeBytes("Q:\\"); }), 68);
}

} // namespace

} // namespace turfdesk
