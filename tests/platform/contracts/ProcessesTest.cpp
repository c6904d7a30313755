// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "samples/Basics.h"

#include <functional>

namespace turfdesk::test {

namespace {

class ProcessesTest : public PlatformTest {
protected:
  std::string HostText(const std::string &path) const { return samples::Utf8(Host(path)); }

  Processes &mPrograms = mPlatform->Programs();
  const std::string mProgram = mPlatform->ProgramFolder() + "\\platform-test-program.exe";
};

TEST_F(ProcessesTest, AProgramGetsEachArgumentAsItIs) {
  Texts commandLine = {"note", HostText(R"(C:\seen)")};
  std::string expected;
  for (const char *argument :
       {"plain", "two words", "", R"(C:\Old Courses\)", R"(C:\plain\)", R"(a\\"b)", "\"quoted\"", R"(ends in \\)",
        "tab\there", "*.hlc", "%PATH% ^ & | < > $HOME", "caf\u00E9 \u754C \U0001F3CC"}) {
    commandLine.emplace_back(argument);
    expected += commandLine.back() + "\n";
  }
  const std::string copy = "C:\\Old caf\u00E9 \U0001F3CC\\converter.exe";
  std::filesystem::create_directory(Host(copy).parent_path());
  std::filesystem::copy_file(samples::HostPath(mPlatform->ToHostPath(mProgram)), Host(copy));
  for (const std::string &program : {mProgram, copy}) {
    std::filesystem::remove(Host(R"(C:\seen)"));
    Run(program, commandLine);
    EXPECT_EQ(Content(R"(C:\seen)"), expected) << program;
  }
}

TEST_F(ProcessesTest, WhatIsNoProgramIsNotStarted) {
  const std::string file = Put(R"(C:\garbage.exe)", "no program");
  for (const auto permission : {std::filesystem::perms::none, std::filesystem::perms::owner_exec}) {
    std::filesystem::permissions(Host(file), std::filesystem::perms::owner_read | permission);
    for (const WindowStyle style : {WindowStyle::Hidden, WindowStyle::NormalFocus})
      EXPECT_EQ(NumberThrownBy([&] { mPrograms.Shell(file, {"x"}, style); }), 75);
  }
}

TEST_F(ProcessesTest, TheWaitLetsWindowsRepaintAndEndsWithTheProcess) {
  const std::uint32_t id =
      mPrograms.Shell(mProgram, {"await", HostText(R"(C:\go)"), HostText(R"(C:\done)")}, WindowStyle::NormalFocus);
  const ProcessHandle handle = mPrograms.OpenProcess(id);
  int repaints = 0;
  std::function<void()> repaint = [this, &repaints] {
    if (++repaints == 2)
      Put(R"(C:\go)");
  };
  mPrograms.WaitForSingleObject(
      handle, [](void *context) { (*static_cast<std::function<void()> *>(context))(); }, &repaint);
  EXPECT_GE(repaints, 2);
  EXPECT_EQ(Content(R"(C:\done)"), "done");
  mPrograms.CloseHandle(handle);
  mPrograms.WaitForSingleObject(handle, nullptr, nullptr);
  const ProcessHandle ended = mPrograms.OpenProcess(id);
  EXPECT_NE(ended, 0U) << "a program that has ended already can be waited for";
  mPrograms.WaitForSingleObject(ended, nullptr, nullptr);
  mPrograms.CloseHandle(ended);
  EXPECT_EQ(mPrograms.OpenProcess(0x7FFFFFFC), 0U);
}

TEST_F(ProcessesTest, OutputOfAProgramStaysOutOfOurs) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Run(mProgram, {"talk"});
  const std::string errors = testing::internal::GetCapturedStderr();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(errors.substr(0, errors.find_last_not_of("\r\n") + 1), "output without input");

  testing::internal::CaptureStderr();
  const ProcessHandle staying =
      mPrograms.OpenProcess(mPrograms.Shell(mProgram, {"complain"}, WindowStyle::NormalFocus));
  mPrograms.WaitForSingleObject(staying, nullptr, nullptr);
  mPrograms.CloseHandle(staying);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "a program that may stay has our output in its hands";
}

TEST_F(ProcessesTest, ATempFolderGoesWithItsProcessAndWhatItLinksToStays) {
  Put(R"(C:\kept\x)", "stays");
  Run(mProgram, {"temp", samples::Utf8(mHome.Path()), HostText(R"(C:\made)"), HostText(R"(C:\kept)")});
  const std::string made = Content(R"(C:\made)");
  EXPECT_NE(made.find("\\turfdesk-temp-"), std::string::npos) << made;
  EXPECT_FALSE(mPlatform->CreateFileService()->DirExists(made));
  EXPECT_EQ(Content(R"(C:\kept\x)"), "stays");
}

TEST_F(ProcessesTest, AProgramUnderstandsTheShortPath) {
  const std::string file = Put("C:\\Old Courses\\Caf\u00E9 \u0416 links.qar");
  Run(mProgram, {"note", mPrograms.GetShortPathName("C:\\OLD courses\\Caf\u00E9 \u0416 LINKS.qar"), "x"});
  EXPECT_EQ(Content(file), "x\n");
  EXPECT_EQ(Entries(R"(C:\Old Courses)").size(), 1U);
  for (const char *none : {R"(C:\none)", "C:\\a*b", "", "x"})
    EXPECT_EQ(mPrograms.GetShortPathName(none), "") << none;
}

TEST_F(ProcessesTest, APlatformKnowsWhereItsProgramLies) {
  EXPECT_TRUE(mPlatform->CreateFileService()->FileExists(mProgram));
  EXPECT_EQ(mPlatform->ToHostPath("c:/Games\\.\\New/..\\x"), HostText(R"(C:\Games\x)"));
  EXPECT_EQ(mPlatform->ToHostPath("C:\\x?"), "");
}

} // namespace

} // namespace turfdesk::test
