// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/Platform.h"
#include "platform/windows/Abandoned.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/TempFolder.h"
#include "platform/windows/WideText.h"

#include <windows.h>

// The system has a macro of this name.
#undef DeleteFile

#include <functional>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

constexpr const char *Scheme = "turfdesktest";

/// Has a program open addresses of a protocol of its own, for as long as the object lives.
class AddressHandler {
public:
  explicit AddressHandler(const std::string &command) {
    const std::wstring key = ToWide(std::string("Software\\Classes\\") + Scheme);
    Set(key, L"URL Protocol", L"");
    Set(key + L"\\shell\\open\\command", nullptr, ToWide(command));
  }
  AddressHandler(const AddressHandler &) = delete;
  AddressHandler &operator=(const AddressHandler &) = delete;
  ~AddressHandler() { RegDeleteTreeW(HKEY_LOCAL_MACHINE, ToWide(std::string("Software\\Classes\\") + Scheme).c_str()); }

private:
  static void Set(const std::wstring &key, const wchar_t *name, const std::wstring &text) {
    EXPECT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, text.c_str(),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
              0);
  }
};

/// Works also on what somebody has open without sharing it.
void MakeOld(const std::wstring &systemPath) {
  SystemHandle entry;
  OpenExisting(systemPath, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, entry);
  const FILETIME longAgo = {0, 0x01C00000};
  SetFileTime(entry.Get(), nullptr, nullptr, &longAgo);
}

class ProcessesTest : public FilesTest {
protected:
  /// Starts the program that is built beside this one, and waits for its end.
  void Run(const Texts &arguments) {
    const ProcessHandle handle = mProcesses.OpenProcess(mProcesses.Shell(mProgram, arguments, WindowStyle::Hidden));
    ASSERT_NE(handle, 0U);
    mProcesses.WaitForSingleObject(handle, nullptr, nullptr);
    mProcesses.CloseHandle(handle);
  }

  std::unique_ptr<Platform> mPlatform = MakePlatform("");
  Processes &mProcesses = mPlatform->Programs();
  std::string mProgram = mPlatform->ProgramFolder() + "\\windows-test-program.exe";
};

TEST_F(ProcessesTest, AProgramGetsEachArgumentAsItIs) {
  const Texts arguments = {"plain",
                           "two words",
                           "",
                           "C:\\Old Courses\\",
                           "C:\\plain\\",
                           "a\\\\\"b",
                           "\"quoted\"",
                           "ends in \\\\",
                           "tab\there",
                           "*.hlc",
                           "%PATH% ^ & | < >",
                           "caf\u00E9 \u754C \U0001F3CC"};
  Texts commandLine = {"note", Path("seen")};
  commandLine.insert(commandLine.end(), arguments.begin(), arguments.end());
  Run(commandLine);
  std::string expected;
  for (const std::string &argument : arguments)
    expected += argument + "\n";
  EXPECT_EQ(Content(Path("seen")), expected);
}

TEST_F(ProcessesTest, AProgramWithALongOrForeignNameIsStarted) {
  std::string folder = "\u0416 programs";
  while (Path(folder).size() < 300)
    folder += "\\a folder with a name that is not short";
  Put(folder + "\\x", "");
  for (const std::string &copy : {Path("caf\u00E9 \U0001F3CC.exe"), Path(folder + "\\converter.exe")}) {
    mPlatform->Copier().Copy(mProgram, copy, {});
    mProgram = copy;
    Run({"note", Path("seen"), "x"});
    EXPECT_EQ(Content(Path("seen")), "x\n") << copy;
    mPlatform->CreateFileService()->DeleteFile(Path("seen"));
  }
}

TEST_F(ProcessesTest, WhatCannotBeStartedHasItsNumber) {
  Put("garbage.exe", "no program");
  const std::pair<std::string, int> cases[] = {{Path("none.exe"), 53},    {Path("none\\x.exe"), 76}, {mFolder, 75},
                                               {Path("garbage.exe"), 75}, {Path("x?.exe"), 52},      {"x.exe", 76}};
  for (const auto &[program, number] : cases)
    for (const WindowStyle style : {WindowStyle::Hidden, WindowStyle::NormalFocus})
      EXPECT_EQ(NumberThrownBy([&, &path = program] { mProcesses.Shell(path, {"x"}, style); }), number) << program;
}

TEST_F(ProcessesTest, TheWaitLetsWindowsRepaintAndEndsWithTheProcess) {
  const std::uint32_t id = mProcesses.Shell(mProgram, {"await", Path("go"), Path("done")}, WindowStyle::NormalFocus);
  const ProcessHandle handle = mProcesses.OpenProcess(id);
  int repaints = 0;
  std::function<void()> repaint = [this, &repaints] {
    if (++repaints == 2)
      Put("go", "");
  };
  mProcesses.WaitForSingleObject(
      handle, [](void *context) { (*static_cast<std::function<void()> *>(context))(); }, &repaint);
  EXPECT_GE(repaints, 2);
  EXPECT_EQ(Content(Path("done")), "done");
  mProcesses.CloseHandle(handle);
  mProcesses.WaitForSingleObject(handle, nullptr, nullptr);
  const ProcessHandle ended = mProcesses.OpenProcess(id);
  EXPECT_NE(ended, 0U) << "a program that has ended already can be waited for";
  mProcesses.CloseHandle(ended);
  EXPECT_EQ(mProcesses.OpenProcess(0x7FFFFFFC), 0U);
}

TEST_F(ProcessesTest, OutputOfAProgramStaysOutOfOurs) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Run({"talk"});
  const std::string errors = testing::internal::GetCapturedStderr();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(errors.substr(0, errors.find_last_not_of("\r\n") + 1), "output without input");
}

// Only a file that other programs may delete could be deleted while the started program holds a handle of it.
TEST_F(ProcessesTest, AStartedProgramGetsNoHandleOfOurs) {
  SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  auto ours =
      SystemHandle(CreateFileW(ToWide(Path("ours")).c_str(), GENERIC_WRITE, 0, &inherited, CREATE_NEW, 0, nullptr));
  for (const WindowStyle style : {WindowStyle::Hidden, WindowStyle::NormalFocus})
    mProcesses.Shell(mProgram, {"await", Path("go"), Path("done")}, style);
  ours = SystemHandle();
  EXPECT_TRUE(mPlatform->CreateFileService()->DeleteFile(Path("ours")));
  Put("go", "");
  while (Content(Path("done")) != "donedone")
    Sleep(10);
}

TEST_F(ProcessesTest, ATempFolderGoesWithItsProcessAndWhatItLinksToStays) {
  Put("kept\\x", "stays");
  Run({"temp", Path("made"), Path("kept")});
  const std::string made = Content(Path("made"));
  EXPECT_NE(made.find("\\turfdesk-temp-"), std::string::npos) << made;
  EXPECT_FALSE(mPlatform->CreateFileService()->DirExists(made));
  EXPECT_EQ(Content(Path("kept\\x")), "stays");
}

// What is young could be about to be opened, so all is made to look old.
TEST_F(ProcessesTest, WhatAKilledProcessLeftIsRemovedByTheNext) {
  std::wstring parent;
  ASSERT_EQ(ToSystemPath(mFolder, parent), 0U);
  const std::string ours = ToUtf8(PlainPath(MakeTempFolder(parent)));
  Run({"die", mFolder});
  Put("turfdesk-temporary\\x", "a user's own");
  Put(".turfdesk-notes.tmp", "a user's own");
  ASSERT_EQ(Entries(mFolder).size(), 4U) << "of a staged file nothing stays, of the temporary folder all";
  // A disk that fails can leave such a file.
  const std::wstring left = parent + L"\\" + FreshName(StagedFileNames);
  SystemHandle(CreateFileW(left.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
  const auto atWork = mNewFiles.Create(Path("y"), false);
  Write(*atWork, "whole");
  MakeTempFolder(parent);
  ASSERT_EQ(Entries(mFolder).size(), 7U) << "young ones stay";
  for (const std::string &name : Entries(mFolder))
    MakeOld(parent + L"\\" + ToWide(name));

  MakeTempFolder(parent);
  mNewFiles.Create(Path("z"), false);
  EXPECT_EQ(Entries(mFolder).size(), 6U) << "one file and one folder have gone, and a new folder has come";
  atWork->Commit(true);
  const auto service = mPlatform->CreateFileService();
  EXPECT_FALSE(service->FileExists(ToUtf8(PlainPath(left))));
  EXPECT_TRUE(service->DirExists(ours));
  EXPECT_EQ(Content(Path("turfdesk-temporary\\x")), "a user's own");
  EXPECT_EQ(Content(Path(".turfdesk-notes.tmp")), "a user's own");
  EXPECT_EQ(Content(Path("y")), "whole");
}

TEST_F(ProcessesTest, AddressesAndDocumentsAreHandedToTheDesktop) {
  const auto service = mPlatform->CreateFileService();
  service->OpenDocument(Path("none.txt"));
  EXPECT_EQ(service->LastError(), 53);
  service->OpenDocument("-help");
  EXPECT_EQ(service->LastError(), 76);
  service->OpenDocument(Put("x.turfdesk-unknown", ""));
  EXPECT_EQ(service->LastError(), 75);
  EXPECT_EQ(service->LastErrorText(), "Path/File access error");

  const AddressHandler handler("\"" + mProgram + "\" note \"" + Path("seen") + "\" \"%1\"");
  const std::string address = std::string(Scheme) + "://host/a?b=c";
  service->OpenDocument(address);
  ASSERT_EQ(service->LastError(), 0) << service->LastErrorText();
  while (Content(Path("seen")) != address + "\n")
    Sleep(10);
}

TEST_F(ProcessesTest, KnowsWhereItsProgramLies) {
  EXPECT_TRUE(mPlatform->CreateFileService()->FileExists(mProgram));
  EXPECT_EQ(mPlatform->ToHostPath("c:/windows\\..\\Games/x"), "C:\\Games\\x");
  EXPECT_EQ(mPlatform->ToHostPath("C:\\x?"), "");
}

} // namespace

} // namespace turfdesk
