// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/posix/PosixProcesses.h"

#include <sys/stat.h>

#include <cstdlib>
#include <functional>

namespace turfdesk {

namespace {

class ProcessesTest : public FilesTest {
protected:
  ProcessesTest() : mSearchPath(std::getenv("PATH")) {}
  ~ProcessesTest() override { setenv("PATH", mSearchPath.c_str(), 1); }

  void PutProgram(std::string_view path, std::string_view content) const {
    Put(path, content);
    chmod(Host(path).c_str(), 0755);
  }

  /// Starts the program and waits for its end.
  int Run(const std::string &program, const std::vector<std::string> &arguments) {
    return NumberThrownBy([&] {
      const ProcessHandle handle = mProcesses.OpenProcess(mProcesses.Shell(program, arguments, WindowStyle::Hidden));
      ASSERT_NE(handle, 0U);
      mProcesses.WaitForSingleObject(handle, nullptr, nullptr);
      mProcesses.CloseHandle(handle);
    });
  }

  /// A script that writes each argument on a line of "seen" beside it.
  static constexpr std::string_view NoteArguments = "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"${0%/*}/seen\"\n";

  std::string mSearchPath;
  ChildProcesses mChildren;
  PosixProcesses mProcesses{mPaths, mChildren};
};

TEST_F(ProcessesTest, AProgramGetsEachArgumentAsOne) {
  PutProgram("Bin/Converter.exe", NoteArguments);
  EXPECT_EQ(Run("c:\\bin\\CONVERTER.EXE", {"two words", "", "-x \"q\""}), 0);
  EXPECT_EQ(Content("Bin/seen"), "two words\n\n-x \"q\"\n");
}

TEST_F(ProcessesTest, AWindowsProgramRunsThroughWine) {
  PutProgram("wine/wine", NoteArguments);
  Put("Bin/Converter.exe", "MZ");
  setenv("PATH", (Host("wine").string() + ":" + mSearchPath).c_str(), 1);
  EXPECT_EQ(Run("C:\\Bin\\Converter.exe", {"/tmp/old courses", "plain"}), 0);
  EXPECT_EQ(Content("wine/seen"), Host("Bin/Converter.exe").string() + "\nZ:\\tmp\\old courses\nplain\n");
}

TEST_F(ProcessesTest, WhatCannotBeStartedHasItsNumber) {
  Put("plain", "#!/bin/sh\n");
  PutProgram("garbage", "no program");
  std::filesystem::create_directory(Host("folder"));
  const PathsByNumber cases = {{52, {"C:\\x?"}},
                               {53, {"C:\\none.exe"}},
                               {68, {"Q:\\x.exe"}},
                               {75, {"C:\\folder", "C:\\plain", "C:\\garbage"}},
                               {76, {"C:\\none\\x.exe"}}};
  for (const auto &[number, programs] : cases)
    for (const std::string &program : programs)
      EXPECT_EQ(Run(program, {}), number) << program;
}

TEST_F(ProcessesTest, ThatWineIsMissingIsToldInWords) {
  Put("windows.exe", "MZ");
  setenv("PATH", Host("").c_str(), 1);
  try {
    mProcesses.Shell("C:\\windows.exe", {}, WindowStyle::Hidden);
    FAIL() << "it was started";
  } catch (const RuntimeError &error) {
    EXPECT_EQ(error.Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(error.Description(), "This is a program for Windows. It needs Wine, which is not installed.");
  }
}

TEST_F(ProcessesTest, TheWaitLetsWindowsRepaintAndEndsWithTheProcess) {
  PutProgram("wait", "#!/bin/sh\nwhile [ ! -e \"${0%/*}/go\" ]; do sleep 0.01; done\necho done >\"${0%/*}/done\"\n");
  const ProcessHandle handle = mProcesses.OpenProcess(mProcesses.Shell("C:\\wait", {}, WindowStyle::NormalFocus));
  int repaints = 0;
  std::function<void()> repaint = [this, &repaints] {
    if (++repaints == 2)
      Put("go", "");
  };
  mProcesses.WaitForSingleObject(
      handle, [](void *context) { (*static_cast<std::function<void()> *>(context))(); }, &repaint);
  EXPECT_GE(repaints, 2);
  EXPECT_EQ(Content("done"), "done\n");
  mProcesses.CloseHandle(handle);
  mProcesses.WaitForSingleObject(handle, nullptr, nullptr);
  EXPECT_EQ(mProcesses.OpenProcess(0x7FFFFFFF), 0U);
}

TEST_F(ProcessesTest, OutputOfAProgramStaysOutOfOurs) {
  PutProgram("talk", "#!/bin/sh\necho output\nread line && echo input\n");
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_EQ(Run("C:\\talk", {}), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "output\n");
}

TEST_F(ProcessesTest, TheShortPathIsTheHostPath) {
  Put("Old Courses/x", "");
  EXPECT_EQ(mProcesses.GetShortPathName("C:\\old courses"), Host("Old Courses").string());
  EXPECT_EQ(mProcesses.GetShortPathName("C:\\none"), "");
}

} // namespace

} // namespace turfdesk
