// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/windows/FileFacts.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsFileCopier.h"
#include "platform/windows/WindowsFileService.h"

#include <windows.h>

// The system has a macro of this name.
#undef DeleteFile

#include <array>
#include <span>

namespace turfdesk {

namespace {

using Names = std::vector<std::string>;

class CopyAndStageTest : public FilesTest {
protected:
  int Copy(const std::string &from, const std::string &to, const FileCopier::Report &report = {}) {
    return NumberThrownBy([&] { WindowsFileCopier().Copy(from, to, report); });
  }

  static FileFacts FactsOf(const std::string &path) {
    FileFacts facts;
    EXPECT_EQ(LookAt(path, facts), 0U) << path;
    return facts;
  }

  WindowsFileService mService;
};

TEST_F(CopyAndStageTest, CopiesContentAndTimeButNoProtection) {
  const std::string content = LargeContent();
  const std::string from = Path("from.hlc");
  const auto source = mNewFiles.Create(from, false);
  Write(*source, content);
  static_cast<WindowsStagedFile &>(*source).KeepTime(126'444'736'001'234'567);
  source->Commit(false);
  SetAttributes(from, FILE_ATTRIBUTE_READONLY);

  std::uint64_t reported = 0;
  EXPECT_EQ(Copy(from, Path("to.hlc"),
                 [&](std::uint64_t done, std::uint64_t total) {
                   EXPECT_LT(reported, done);
                   EXPECT_EQ(total, content.size());
                   EXPECT_FALSE(mService.FileExists(Path("to.hlc")));
                   reported = done;
                 }),
            0);
  EXPECT_EQ(reported, content.size());
  EXPECT_TRUE(Content(Path("to.hlc")) == content);
  EXPECT_EQ(FactsOf(Path("to.hlc")).modified, 126'444'736'001'234'567U);
  EXPECT_EQ(mFiles.OpenForBinaryRead(Path("to.hlc"))->ModificationTime(), 1'000'000'000);
  EXPECT_TRUE(mService.DeleteFile(Path("to.hlc")));
  EXPECT_EQ(Entries(mFolder), Names{"from.hlc"});
}

TEST_F(CopyAndStageTest, LongNamesAndThoseOfAnyScriptAreReached) {
  std::string folder = "Caf\u00E9 \u754C \U0001F3CC";
  while (folder.size() < 400)
    folder += "\\a folder with a name that is not short";
  const std::string file = folder + "\\\u0416 \U0001F3CC.hlc";
  Put(file, "12345");
  EXPECT_EQ(Copy(Path(file), Path(folder + "\\copy.hlc")), 0);
  EXPECT_EQ(Content(Path(folder + "\\COPY.hlc")), "12345");
  EXPECT_EQ(mService.GetFileSize(Path(file)), 5);
  EXPECT_TRUE(mService.DirExists(Path(folder)));
  EXPECT_TRUE(mService.IsValidFilename(Path(folder + "\\new.hlz")));
  EXPECT_GT(mNewFiles.FreeBytes(Path(folder)), 0U);
  EXPECT_TRUE(mService.DeleteFile(Path(file)));
  EXPECT_EQ(Entries(Path(folder)), Names{"copy.hlc"});
}

TEST_F(CopyAndStageTest, AReadOnlyFileStays) {
  const std::string locked = Put("locked", "old");
  Put("new", "new");
  SetAttributes(locked, FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(mService.DeleteFile(locked));
  EXPECT_EQ(mService.LastError(), 75);
  EXPECT_EQ(mService.LastErrorText(), "Path/File access error");
  EXPECT_EQ(Copy(Path("new"), locked), 75);
  EXPECT_EQ(NumberThrownBy([&] { mNewFiles.Create(locked, false); }), 75);
  EXPECT_EQ(Content(locked), "old");

  SetAttributes(locked, FILE_ATTRIBUTE_NORMAL);
  const auto staged = mNewFiles.Create(locked, false);
  SetAttributes(locked, FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(NumberThrownBy([&] { staged->Commit(true); }), 75) << "protected meanwhile";
  EXPECT_EQ(Content(locked), "old");
}

TEST_F(CopyAndStageTest, AFileThatAnotherProgramHasOpenIsInUse) {
  const std::string used = Put("used", "old");
  const std::string other = Put("other", "other");
  {
    const SystemHandle user = OpenExclusively(used);
    EXPECT_EQ(NumberThrownBy([&] { mFiles.OpenForBinaryRead(used); }), 70);
    EXPECT_EQ(Copy(used, Path("copy")), 70);
    EXPECT_EQ(Copy(other, used), 70);
    EXPECT_EQ(NumberThrownBy([&] { mNewFiles.Create(used, false); }), 70);
    EXPECT_FALSE(mService.DeleteFile(used));
    EXPECT_EQ(mService.LastErrorText(), "Permission denied");
    EXPECT_EQ(mService.GetFileSize(used), 3);
    EXPECT_TRUE(mService.FileExists(used));
    EXPECT_TRUE(mNewFiles.IsSameFile(used, Path("USED")));
  }
  const auto staged = mNewFiles.Create(used, false);
  {
    const SystemHandle user = OpenExclusively(used);
    EXPECT_EQ(NumberThrownBy([&] { staged->Commit(true); }), 70) << "opened meanwhile";
  }
  EXPECT_EQ(Content(used), "old");
  EXPECT_EQ(Copy(other, used), 0);
  EXPECT_EQ(Content(used), "other");
}

TEST_F(CopyAndStageTest, NobodyWritesToASourceMeanwhile) {
  const std::string from = Put("from", LargeContent());
  const auto write = [&from](std::uint64_t, std::uint64_t) {
    const SystemHandle file(CreateFileW(ToWide(from).c_str(), GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        TRUNCATE_EXISTING, 0, nullptr));
    EXPECT_FALSE(file.IsOpen());
  };
  EXPECT_EQ(Copy(from, Path("to"), write), 0);
  EXPECT_TRUE(Content(Path("to")) == LargeContent());
}

TEST_F(CopyAndStageTest, OneFileIsRecognisedByAllItsNames) {
  const std::string file = Put("A long name.hlc", "one of a kind");
  ASSERT_NE(CreateHardLinkW(ToWide(Path("hard")).c_str(), ToWide(file).c_str(), nullptr), 0);
  wchar_t shortPath[MAX_PATH];
  ASSERT_NE(GetShortPathNameW(ToWide(file).c_str(), shortPath, MAX_PATH), 0U);
  const Names before = Entries(mFolder);
  for (const std::string &name :
       {file, Path("a LONG name.HLC"), Path(".\\x\\..\\A long name.hlc"), Path("hard"), ToUtf8(shortPath)}) {
    EXPECT_TRUE(mNewFiles.IsSameFile(file, name)) << name;
    EXPECT_EQ(Copy(file, name), 70) << name;
  }
  EXPECT_FALSE(mNewFiles.IsSameFile(file, Put("other", "one of a kind")));
  EXPECT_FALSE(mNewFiles.IsSameFile(Path("none"), Path("none")));
  EXPECT_EQ(Content(file), "one of a kind");
}

TEST_F(CopyAndStageTest, AFileAppearsWholeAndOnlyWhenItIsCommitted) {
  for (const bool flush : {false, true}) {
    Put("Games\\Old.hlz", "old");
    const auto file = mNewFiles.Create(Path("games/OLD.hlz"), false);
    Write(*file, "0123456789");
    file->Seek(2);
    Write(*file, "ab");
    EXPECT_EQ(file->Tell(), 4U);
    file->SetModificationTime(1'000'000'000);
    EXPECT_EQ(Content(Path("Games\\Old.hlz")), "old");
    file->Commit(flush);
    // Also while the object lives.
    const auto whole = mFiles.OpenForBinaryRead(Path("Games\\Old.hlz"));
    EXPECT_EQ(whole->Size(), 10U);
    EXPECT_EQ(whole->ModificationTime(), 1'000'000'000);
    EXPECT_EQ(Content(Path("Games\\Old.hlz")), "01ab456789");
    EXPECT_EQ(Entries(Path("Games")), Names{"Old.hlz"}) << "it keeps its name";
  }
}

TEST_F(CopyAndStageTest, WithoutCommitNothingStays) {
  Put("Games\\x", "old");
  Write(*mNewFiles.Create(Path("Games\\x"), false), "new");
  Write(*mNewFiles.Create(Path("Games\\new\\deep\\y"), true), "new");
  EXPECT_EQ(Entries(Path("Games")), Names{"x"});
  EXPECT_EQ(Content(Path("Games\\x")), "old");
}

TEST_F(CopyAndStageTest, RefusalsHaveTheirNumbersAndChangeNothing) {
  const std::string file = Put("x.hlc", "one of a kind");
  Put("folder\\y", "");
  const struct {
    std::string from, to;
    int number;
  } cases[] = {
      {file, Path("folder"), 75},
      {mFolder, Path("new"), 75},
      {Path("none"), Path("new"), 53},
      {Path("none\\x"), Path("new"), 76},
      {file, Path("none\\new"), 76},
      {file, Path("x.hlc\\new"), 76},
      {file, Path("new?"), 52},
      {file, Path("x.hlc "), 52},
      {file, Path(".turfdesk-abcdef.tmp"), 52},
      {file, "C:\\", 75},
      {"", Path("new"), 76},
      {file, "new", 76},
  };
  for (const auto &c : cases)
    EXPECT_EQ(Copy(c.from, c.to), c.number) << c.from << " to " << c.to;
  EXPECT_EQ(NumberThrownBy([&] { mNewFiles.Create(Path("x.hlc\\new\\y"), true); }), 76);
  EXPECT_EQ(Entries(mFolder), (Names{"folder", "x.hlc"}));
  EXPECT_EQ(Content(file), "one of a kind");
  EXPECT_EQ(NumberThrownBy([this] { mNewFiles.FreeBytes(Path("none")); }), 76);
}

TEST_F(CopyAndStageTest, ReadsFromAnyPlaceToTheEnd) {
  Put("x", "0123456789");
  const auto file = mFiles.OpenForBinaryRead(Path("x"));
  std::array<std::uint8_t, 100> buffer{};
  const auto read = [&](std::size_t count) {
    const std::size_t got = file->Read(std::span(buffer).first(count));
    return std::string(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(got));
  };
  EXPECT_EQ(read(4), "0123");
  EXPECT_EQ(read(100), "456789");
  EXPECT_EQ(read(1), "");
  file->Seek(8);
  EXPECT_EQ(read(2), "89");
  file->Seek(99);
  EXPECT_EQ(read(1), "");
  for (const std::string &absent :
       {std::string(), Path("none"), Path("none\\x"), mFolder, Path("x\\y"), std::string("x")})
    EXPECT_EQ(mFiles.OpenForBinaryRead(absent), nullptr) << absent;
  EXPECT_EQ(NumberThrownBy([this] { mFiles.OpenForBinaryRead(Path("CON")); }), 52);
}

} // namespace

} // namespace turfdesk
