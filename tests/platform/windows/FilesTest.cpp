// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "platform/windows/SystemError.h"
#include "platform/windows/SystemHandle.h"
#include "platform/windows/WideText.h"

#include <windows.h>

// The system has macros of these names.
#undef DeleteFile
#undef GetShortPathName

namespace turfdesk::test {

namespace {

constexpr DWORD SharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Has a program open addresses of the protocol turfdesktest, for as long as the object lives.
class AddressHandler {
public:
  explicit AddressHandler(const std::string &command) {
    Set(mKey, L"URL Protocol", L"");
    Set(mKey + L"\\shell\\open\\command", nullptr, ToWide(command));
  }
  AddressHandler(const AddressHandler &) = delete;
  AddressHandler &operator=(const AddressHandler &) = delete;
  ~AddressHandler() { RegDeleteTreeW(HKEY_LOCAL_MACHINE, mKey.c_str()); }

private:
  static void Set(const std::wstring &key, const wchar_t *name, const std::wstring &text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, text.c_str(), size), 0);
  }

  const std::wstring mKey = LR"(Software\Classes\turfdesktest)";
};

/// What an environment variable says while the object lives. Started programs get it, too.
class Variable {
public:
  Variable(const wchar_t *name, const std::string &text) : mName(name) {
    const wchar_t *before = _wgetenv(name);
    mBefore = before == nullptr ? L"" : before;
    SetEnvironmentVariableW(name, ToWide(text).c_str());
  }
  Variable(const Variable &) = delete;
  Variable &operator=(const Variable &) = delete;
  ~Variable() { SetEnvironmentVariableW(mName, mBefore.c_str()); }

private:
  const wchar_t *mName;
  std::wstring mBefore;
};

class WindowsFilesTest : public PlatformTest {
protected:
  int Copy(const std::string &from, const std::string &to, const FileCopier::Report &report = {}) {
    return NumberThrownBy([&] { CopyNow(mPlatform->Copier(), from, to, report); });
  }
  int Create(const std::string &path) {
    return NumberThrownBy([&] { mNewFiles.Create(path, false); });
  }
  /// Opens a file as another program might.
  SystemHandle Open(const std::string &path, DWORD access, DWORD sharing, DWORD creation = OPEN_EXISTING) const {
    SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return SystemHandle(CreateFileW(Host(path).c_str(), access, sharing, &inherited, creation, 0, nullptr));
  }
  std::string ShortFormOf(const std::string &path) const {
    wchar_t shortPath[MAX_PATH] = {};
    GetShortPathNameW(Host(path).c_str(), shortPath, MAX_PATH);
    return ToUtf8(shortPath);
  }
  void AwaitContent(const std::string &path, const std::string &content) const {
    while (Content(path) != content)
      Sleep(10);
  }

  std::unique_ptr<FileService> mService = mPlatform->CreateFileService();
  StagedFiles &mNewFiles = mPlatform->NewFiles();
  Processes &mPrograms = mPlatform->Programs();
  const std::string mProgram = mPlatform->ProgramFolder() + "\\platform-test-program.exe";
};

TEST_F(WindowsFilesTest, LongNamesAreReachedAndProgramsOfSuchNamesStarted) {
  std::string folder = "C:\\Caf\u00E9 \u754C \U0001F3CC";
  while (folder.size() < 400)
    folder += "\\a folder with a name that is not short";
  const std::string program = folder + "\\\u0416 \U0001F3CC.exe";
  mNewFiles.Create(program, true)->Commit(false);
  EXPECT_EQ(Copy(mProgram, program), 0);
  EXPECT_GT(mService->GetFileSize(folder + "\\\u0416 \U0001F3CC.EXE"), 0);
  EXPECT_TRUE(mService->DirExists(folder));
  EXPECT_TRUE(mService->IsValidFilename(folder + "\\new.hlz"));
  EXPECT_GT(mNewFiles.FreeBytes(folder), 0U);
  EXPECT_EQ(mPlatform->Folders().Files(folder, "*"), Texts{"\u0416 \U0001F3CC.exe"});
  mPrograms.Shell(program, {"note", R"(C:\seen)", "x"}, WindowStyle::Hidden);
  AwaitContent(R"(C:\seen)", "x\n");
}

TEST_F(WindowsFilesTest, AReadOnlyFileStaysWhateverItIsAskedToBe) {
  const std::string locked = Put(R"(C:\locked)", "old");
  const auto staged = mNewFiles.Create(locked, false);
  SetFileAttributesW(Host(locked).c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  EXPECT_FALSE(mService->DeleteFile(locked));
  EXPECT_EQ(mService->LastError(), 75);
  EXPECT_EQ(Copy(Put(R"(C:\new)"), locked), 75);
  EXPECT_EQ(Create(locked), 75);
  EXPECT_EQ(NumberThrownBy([&] { staged->Commit(true); }), 75) << "protected meanwhile";
  EXPECT_EQ(Content(locked), "old");
}

TEST_F(WindowsFilesTest, AFileThatAnotherProgramHasOpenIsInUse) {
  const std::string used = Put(R"(C:\used)", "old");
  const std::string other = Put(R"(C:\other)", "other");
  const auto staged = mNewFiles.Create(used, false);
  {
    const SystemHandle user = Open(used, GENERIC_READ, 0);
    EXPECT_EQ(NumberThrownBy([&] { mPlatform->Files().OpenForBinaryRead(used); }), 70);
    EXPECT_EQ(Copy(used, R"(C:\copy)"), 70);
    EXPECT_EQ(Copy(other, used), 70);
    EXPECT_EQ(Create(used), 70);
    EXPECT_EQ(NumberThrownBy([&] { staged->Commit(true); }), 70) << "opened meanwhile";
    EXPECT_FALSE(mService->DeleteFile(used));
    EXPECT_EQ(mService->LastErrorText(), "Permission denied");
    EXPECT_EQ(mService->GetFileSize(used), 3);
    EXPECT_TRUE(mService->FileExists(used));
    EXPECT_TRUE(mNewFiles.IsSameFile(used, R"(C:\USED)"));
  }
  EXPECT_EQ(Content(used), "old");
  EXPECT_EQ(Copy(other, used), 0);
  EXPECT_EQ(Content(used), "other");
}

TEST_F(WindowsFilesTest, NobodyWritesToASourceMeanwhile) {
  const std::string from = Put(R"(C:\from)", LargeContent());
  EXPECT_EQ(Copy(from, R"(C:\to)",
                 [&](std::uint64_t, std::uint64_t) {
                   EXPECT_FALSE(Open(from, GENERIC_WRITE, SharedByAll, TRUNCATE_EXISTING).IsOpen());
                 }),
            0);
  EXPECT_TRUE(Content(R"(C:\to)") == LargeContent());
}

TEST_F(WindowsFilesTest, ShortNamesLeadToTheFileAndHaveNoBlanks) {
  const std::string file = Put("C:\\Old Courses\\A long name.hlc");
  const std::string shortPath = mPrograms.GetShortPathName("C:\\OLD courses\\a long NAME.hlc");
  EXPECT_EQ(shortPath, ShortFormOf(file));
  EXPECT_EQ(shortPath.find(' '), std::string::npos) << shortPath;
  EXPECT_TRUE(mNewFiles.IsSameFile(file, shortPath));
  EXPECT_EQ(Copy(file, shortPath), 70);
  EXPECT_EQ(mPlatform->Folders().CanonicalFolder(ShortFormOf("C:\\Old Courses")), "C:\\Old Courses");
}

TEST_F(WindowsFilesTest, ListsLeaveOutWhatIsHidden) {
  for (const char *path : {R"(C:\Games\b.hlc)", R"(C:\Games\secret.hlc)", R"(C:\Games\sub\x)", R"(C:\Games\hidden\x)"})
    Put(path);
  for (const char *path : {R"(C:\Games\secret.hlc)", R"(C:\Games\hidden)"})
    SetFileAttributesW(Host(path).c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(mPlatform->Folders().Files(R"(C:\Games)", "*"), Texts{"b.hlc"});
  EXPECT_EQ(mPlatform->Folders().Subfolders(R"(C:\Games)"), Texts{"sub"});
}

// Only a file that other programs may delete could be deleted while the started program holds a handle of it.
TEST_F(WindowsFilesTest, AStartedProgramGetsNoHandleOfOurs) {
  SystemHandle ours = Open(R"(C:\ours)", GENERIC_WRITE, 0, CREATE_NEW);
  for (const WindowStyle style : {WindowStyle::Hidden, WindowStyle::NormalFocus})
    mPrograms.Shell(mProgram, {"await", R"(C:\go)", R"(C:\done)"}, style);
  ours = SystemHandle();
  EXPECT_TRUE(mService->DeleteFile(R"(C:\ours)"));
  Put(R"(C:\go)");
  AwaitContent(R"(C:\done)", "donedone");
}

TEST_F(WindowsFilesTest, AddressesAndDocumentsAreHandedToTheDesktop) {
  mService->OpenDocument(Put(R"(C:\x.turfdesk-unknown)"));
  EXPECT_EQ(mService->LastErrorText(), "Path/File access error");
  const AddressHandler handler("\"" + mProgram + "\" note C:\\seen \"%1\"");
  mService->OpenDocument("turfdesktest://host/a?b=c");
  ASSERT_EQ(mService->LastError(), 0) << mService->LastErrorText();
  AwaitContent(R"(C:\seen)", "turfdesktest://host/a?b=c\n");
}

TEST_F(WindowsFilesTest, TheTempFolderLiesWhereThereIsAPlaceForOne) {
  std::string tooLongForSome = "C:\\Temp";
  while (tooLongForSome.size() < 300)
    tooLongForSome += "\\a folder for temporary files";
  Put(tooLongForSome + "\\x");
  const Variable local(L"LOCALAPPDATA", "Q:\\");
  const struct {
    std::string tmp;
    std::string temp;
    std::string prefix;
  } cases[] = {
      {"C:\\", "", "C:\\"},
      {tooLongForSome, "", tooLongForSome + "\\"},
      {"C:\\Missing", "C:\\Temp", "C:\\Temp\\"},
      {"Q:\\", "", ToUtf8(_wgetenv(L"SystemRoot")) + "\\Temp\\"},
  };
  for (const auto &each : cases) {
    const Variable tmp(L"TMP", each.tmp);
    const Variable temp(L"TEMP", each.temp);
    Run(mProgram, {"temp", "", "C:\\made", "C:\\Temp"});
    const std::string made = Content("C:\\made");
    EXPECT_EQ(made.substr(0, made.find("turfdesk-temp-")), each.prefix);
  }
}

TEST_F(WindowsFilesTest, PathsOfTheNetworkAndOfUsersAreUnderstood) {
  std::string longest = "C:\\";
  for (int i = 0; i < 255; ++i)
    longest += "\u754C";
  for (const auto &[path, hostPath] : {std::pair<std::string, std::string>{"c:/", "C:\\"},
                                       {R"(\\server\share)", R"(\\server\share\)"},
                                       {"//server/share/../x", R"(\\server\share\x)"},
                                       {R"(\\server\sh?re\x)", ""},
                                       {R"(\\.\C:\x)", ""},
                                       {longest, longest}})
    EXPECT_EQ(mPlatform->ToHostPath(path), hostPath);
  std::filesystem::current_path("C:\\windows");
  for (const auto &[path, fullPath] : {std::pair{"x.hlc", R"(C:\windows\x.hlc)"},
                                       {"C:x", R"(C:\windows\x)"},
                                       {"\\x", R"(C:\x)"},
                                       {"/x", R"(C:\x)"},
                                       {".", R"(C:\windows)"},
                                       {R"(..\..)", R"(C:\)"},
                                       {"nul", ""},
                                       {"x. ", ""}})
    EXPECT_EQ(mPlatform->ToWindowsPath(path), fullPath) << path;
}

TEST(SystemError, TheSystemsWordsFitIntoASentence) {
  const std::string words = SystemWords(ERROR_ACCESS_DENIED);
  EXPECT_GT(words.size(), 5U);
  EXPECT_EQ(words.find_first_of("\r\n"), std::string::npos) << words;
  EXPECT_EQ(SystemWords(0xDEADBEEF), "System error 3735928559");
}

} // namespace

} // namespace turfdesk::test
