// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace turfdesk::test {

namespace {

/// The tools and programs of the desktop are those that the test puts into the search path.
class DesktopTest : public PlatformTest {
protected:
  DesktopTest() { setenv("PATH", (Host(R"(C:\bin)").string() + ":" + mSearchPath).c_str(), 1); }
  ~DesktopTest() override {
    setenv("PATH", mSearchPath.c_str(), 1);
    unsetenv("TMPDIR");
  }

  /// A script that writes its arguments, a line each, into the file "seen" beside it, and may do more.
  void PutTool(const std::string &path, const std::string &more = "") const {
    Put(path, "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"${0%/*}/seen\"\n" + more);
    std::filesystem::permissions(Host(path), std::filesystem::perms::owner_all);
  }

  const std::string mSearchPath = std::getenv("PATH");
  std::unique_ptr<FileService> mService = mPlatform->CreateFileService();
  Processes &mPrograms = mPlatform->Programs();
};

TEST_F(DesktopTest, DocumentsAreHandedToTheDesktop) {
  PutTool(R"(C:\bin\xdg-open)", "case $1 in *missing*) exit 2;; *bad*) exit 4;; esac\n");
  Put(R"(C:\Read me.txt)");
  const struct {
    std::string document, seen;
    int number;
  } cases[] = {
      {R"(C:\read me.txt)", Host(R"(C:\Read me.txt)").string(), 0},
      {"https://host.example/a?b=c", "https://host.example/a?b=c", 0},
      {"http://host.example/missing", "http://host.example/missing", 53},
      {"http://host.example/bad", "http://host.example/bad", 75},
  };
  for (const auto &c : cases) {
    mService->OpenDocument(c.document);
    EXPECT_EQ(mService->LastError(), c.number) << c.document;
    EXPECT_EQ(Content(R"(C:\bin\seen)"), c.seen + "\n");
  }
  setenv("PATH", Host("C:\\").c_str(), 1);
  mService->OpenDocument("https://host.example/");
  EXPECT_EQ(mService->LastError(), 53) << "no tool of the desktop";
}

TEST_F(DesktopTest, AWindowsProgramRunsThroughWine) {
  PutTool(R"(C:\bin\wine)");
  Put(R"(C:\Old\Converter.exe)", "MZ");
  const ProcessHandle handle = mPrograms.OpenProcess(
      mPrograms.Shell(R"(C:\OLD\converter.exe)", {"/tmp/old courses", "plain"}, WindowStyle::Hidden));
  mPrograms.WaitForSingleObject(handle, nullptr, nullptr);
  EXPECT_EQ(Content(R"(C:\bin\seen)"), Host(R"(C:\Old\Converter.exe)").string() + "\nZ:\\tmp\\old courses\nplain\n");
  setenv("PATH", Host("C:\\").c_str(), 1);
  try {
    mPrograms.Shell(R"(C:\Old\Converter.exe)", {}, WindowStyle::Hidden);
    FAIL() << "it was started";
  } catch (const RuntimeError &error) {
    EXPECT_EQ(error.Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(error.Description(), "This is a program for Windows. It needs Wine, which is not installed.");
  }
}

TEST_F(DesktopTest, TheTempFolderIsOnADriveThatThereIs) {
  std::filesystem::remove(mHome.Path() / "drives/z:");
  const std::string folder = mService->GetTempFolder();
  EXPECT_TRUE(mService->DirExists(folder));
  EXPECT_TRUE(folder.starts_with("C:\\"));
  std::filesystem::remove(Host(folder));
  EXPECT_TRUE(mService->DirExists(mService->GetTempFolder())) << "after somebody swept it away";
  std::filesystem::remove(mHome.Path() / "drives/c:");
  EXPECT_EQ(NumberThrownBy([this] { mService->GetTempFolder(); }), 75);
}

TEST_F(DesktopTest, TheTempFolderIsItsOwnersAloneAndOnlyHeRemovesIt) {
  // Of the right name, but open to all.
  const std::filesystem::path another = Host(R"(C:\temp\)" + LeftoverName(TempFolderNames));
  std::filesystem::create_directories(another);
  std::filesystem::permissions(another, std::filesystem::perms{0755});
  MakeOld(another);
  setenv("TMPDIR", Host(R"(C:\temp)").c_str(), 1);
  const std::string folder = mService->GetTempFolder();
  EXPECT_TRUE(folder.starts_with(R"(C:\temp\turfdesk-temp-)")) << folder;
  EXPECT_EQ(std::filesystem::status(Host(folder)).permissions(), std::filesystem::perms::owner_all);
  EXPECT_TRUE(std::filesystem::exists(another));
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0)
    std::exit(0);
  waitpid(child, nullptr, 0);
  EXPECT_TRUE(mService->DirExists(folder));
}

} // namespace

} // namespace turfdesk::test
