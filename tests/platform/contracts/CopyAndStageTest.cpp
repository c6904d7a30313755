// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "common/InjectedFault.h"
#include "platform/TemporaryNames.h"
#include "samples/Basics.h"

#include <algorithm>

namespace turfdesk::test {

namespace {

class CopyAndStageTest : public PlatformTest {
protected:
  int Copy(const std::string &from, const std::string &to, const FileCopier::Report &report = {}) {
    return NumberThrownBy([&] { CopyNow(mPlatform->Copier(), from, to, report); });
  }

  std::int64_t TimeOf(const std::string &path) {
    return mPlatform->Files().OpenForBinaryRead(path)->ModificationTime();
  }

  StagedFiles &mNewFiles = mPlatform->NewFiles();
};

TEST_F(CopyAndStageTest, ReadsFromAnyPlaceToTheEnd) {
  Put(R"(C:\Games\x.hlc)", "0123456789");
  const auto file = mPlatform->Files().OpenForBinaryRead(R"(c:\games/X.hlc)");
  const auto read = [&file](std::size_t count) {
    std::string buffer(count, '\0');
    buffer.resize(file->Read({reinterpret_cast<std::uint8_t *>(buffer.data()), count}));
    return buffer;
  };
  EXPECT_EQ(file->Size(), 10U);
  EXPECT_EQ(read(4), "0123");
  EXPECT_EQ(read(100), "456789");
  EXPECT_EQ(read(1), "");
  file->Seek(8);
  EXPECT_EQ(read(2), "89");
  file->Seek(99);
  EXPECT_EQ(read(1), "");
}

TEST_F(CopyAndStageTest, AFileAppearsWholeAndOnlyWhenItIsCommitted) {
  for (const bool flush : {false, true}) {
    Put(R"(C:\Games\X.hlz)", "old");
    const auto file = mNewFiles.Create("c:/games/x.HLZ", false);
    Write(*file, "0123456789");
    file->Seek(2);
    Write(*file, "ab");
    EXPECT_EQ(file->Tell(), 4U);
    file->SetModificationTime(1'000'000'000);
    EXPECT_EQ(Content(R"(C:\Games\X.hlz)"), "old");
    file->Commit(flush);
    // Also while the object lives.
    EXPECT_EQ(Content(R"(C:\Games\X.hlz)"), "01ab456789");
    EXPECT_EQ(TimeOf(R"(C:\Games\X.hlz)"), 1'000'000'000);
    EXPECT_EQ(Entries(R"(C:\Games)"), Texts{"X.hlz"}) << "it keeps its name";
  }
}

TEST_F(CopyAndStageTest, WhatACopyReplacesComesBackUntilItIsKept) {
  Put(R"(C:\from\x)", "new");
  const std::string to = Put(R"(C:\to\X)", "old");
  const auto stage = [&] { return mPlatform->Copier().Stage(R"(C:\from\x)", R"(C:\to\x)", {}); };
  stage();
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{"X"});
  {
    const auto copy = stage();
    copy->Place();
    EXPECT_TRUE(copy->HasReplaced());
    EXPECT_EQ(Content(to), "new");
    // Neither a later write in the folder nor the end of the program costs the only copy.
    for (const std::string &name : Entries(R"(C:\to)"))
      MakeOld(Host(R"(C:\to\)" + name));
    mNewFiles.Create(R"(C:\to\y)", false);
    copy->TakeBack();
    EXPECT_EQ(Content(to), "old");
    EXPECT_EQ(Entries(R"(C:\to)"), Texts{"X"});
  }
  std::string aside;
  {
    const auto copy = stage();
    copy->Place();
    aside = copy->SetAsidePath();
  }
  EXPECT_EQ(Content(aside), "old") << aside;
  std::filesystem::remove(Host(aside));
  std::filesystem::remove(Host(to));
  const auto copy = stage();
  copy->Place();
  EXPECT_FALSE(copy->HasReplaced());
  copy->TakeBack();
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{});
}

TEST_F(CopyAndStageTest, WhatAnotherProgramPutsInThePlaceOfACopyStays) {
  Put(R"(C:\from\x)", "new");
  for (const bool replaces : {false, true}) {
    const std::string to = replaces ? Put(R"(C:\to\y)", "old") : R"(C:\to\x)";
    const std::string theirs = Put(R"(C:\to\theirs)", "theirs");
    const auto copy = mPlatform->Copier().Stage(R"(C:\from\x)", to, {});
    copy->Place();
    std::filesystem::rename(Host(theirs), Host(to));
    EXPECT_EQ(NumberThrownBy([&] { copy->TakeBack(); }) != 0, replaces);
    EXPECT_EQ(Content(to), "theirs");
    EXPECT_TRUE(!replaces || Content(copy->SetAsidePath()) == "old");
  }
}

TEST_F(CopyAndStageTest, WhatIsSetAsideComesBackUnderItsOwnNameOnly) {
  Put(R"(C:\from\x)", "new");
  const std::string name = std::string(246, 'n') + ".hlc";
  const std::string path = Put(R"(C:\to\)" + name, "old");
  const auto copy = mPlatform->Copier().Stage(R"(C:\from\x)", path, {});
  copy->Place();
  const std::string aside = copy->SetAsidePath();
  EXPECT_EQ(NameBeforeSetAside(aside.substr(aside.rfind('\\') + 1)).value_or(name), name);
  copy->TakeBack();
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{name});
}

TEST_F(CopyAndStageTest, FoldersAreMadeAndStayOnlyWithTheirFile) {
  Put(R"(C:\Games\x)", "old");
  Write(*mNewFiles.Create(R"(C:\Games\x)", false), "new");
  Write(*mNewFiles.Create(R"(C:\Games\new\deep\y)", true), "new");
  EXPECT_EQ(Entries(R"(C:\Games)"), Texts{"x"});
  EXPECT_EQ(Content(R"(C:\Games\x)"), "old");
  mNewFiles.Create(R"(C:\GAMES\New\Deep\y)", true)->Commit(true);
  EXPECT_EQ(Content(R"(C:\Games\New\Deep\y)"), "");
}

TEST_F(CopyAndStageTest, CopiesContentAndTimeButNoProtection) {
  const std::string content = LargeContent();
  Put(R"(C:\from\x.hlc)", content);
  std::filesystem::create_directory(Host(R"(C:\to)"));
  MakeOld(Host(R"(C:\from\x.hlc)"));
  SetReadOnly(Host(R"(C:\from\x.hlc)"), true);
  std::uint64_t reported = 0;
  EXPECT_EQ(Copy(R"(C:\from\X.hlc)", R"(C:\to\x.hlc)",
                 [&](std::uint64_t done, std::uint64_t total) {
                   EXPECT_LE(reported, done);
                   EXPECT_EQ(total, content.size());
                   EXPECT_FALSE(std::filesystem::exists(Host(R"(C:\to\x.hlc)")));
                   reported = done;
                 }),
            0);
  EXPECT_EQ(reported, content.size());
  EXPECT_TRUE(Content(R"(C:\to\x.hlc)") == content);
  EXPECT_EQ(TimeOf(R"(C:\to\x.hlc)"), TimeOf(R"(C:\from\x.hlc)"));
  Put(R"(C:\from\empty)");
  EXPECT_EQ(Copy(R"(C:\from\empty)", R"(C:\TO\X.HLC)"), 0)
      << "a copy from a read-only medium is not read-only for good";
  EXPECT_EQ(Content(R"(C:\to\x.hlc)"), "");
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{"x.hlc"});
}

TEST_F(CopyAndStageTest, OneFileIsRecognisedByAllItsNames) {
  const std::string file = Put(R"(C:\Games\x.hlc)", "one of a kind");
  Texts names = {file, "c:/games/.\\X.HLC", R"(C:\Games\none\..\x.hlc)"};
  for (const std::string &folder : MakeAliases(mHome.Path(), R"(C:\Games)"))
    names.push_back(folder + "\\x.hlc");
  names.emplace_back(R"(C:\Games\hard)");
  std::filesystem::create_hard_link(Host(file), Host(names.back()));
  for (const std::string &name : names) {
    EXPECT_TRUE(mNewFiles.IsSameFile(file, name)) << name;
    EXPECT_EQ(Copy(file, name), 70) << name;
    EXPECT_EQ(Copy(name, file), 70) << name;
  }
  EXPECT_FALSE(mNewFiles.IsSameFile(file, Put(R"(C:\other)", "one of a kind")));
  EXPECT_FALSE(mNewFiles.IsSameFile(R"(C:\none)", R"(C:\none)"));
  EXPECT_EQ(Content(file), "one of a kind");
}

TEST_F(CopyAndStageTest, ADestinationThatIsProtectedMeanwhileStays) {
  const std::string from = Put(R"(C:\from)", "new");
  const std::string to = Put(R"(C:\to)", "old");
  EXPECT_EQ(Copy(from, to, [&](std::uint64_t, std::uint64_t) { SetReadOnly(Host(to), true); }), 75);
  EXPECT_EQ(Content(to), "old");
}

TEST_F(CopyAndStageTest, ADiskThatFailsLeavesTheOldFileAndNothingElse) {
  const std::string from = Put(R"(C:\from)", LargeContent());
  const std::string to = Put(R"(C:\to\x)", "old");
  for (const auto &[work, number] : {std::pair{DiskWork::Write, 61}, {DiskWork::Flush, 57}, {DiskWork::Rename, 75}}) {
    SCOPED_TRACE(number);
    const auto staged = mNewFiles.Create(to, false);
    const InjectedFault fault(Refusal(work));
    EXPECT_EQ(Copy(from, to), number);
    EXPECT_EQ(NumberThrownBy([&file = *staged] {
                Write(file, "new");
                file.Commit(true);
              }),
              number);
    EXPECT_EQ(Content(to), "old");
  }
  {
    const InjectedFault fault(Refusal(DiskWork::Open));
    EXPECT_EQ(Copy(from, to), 75);
    EXPECT_EQ(NumberThrownBy([&] { mNewFiles.Create(to, false); }), 75);
  }
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{"x"});
}

TEST_F(CopyAndStageTest, AFailureOfTheVeryLastFlushLeavesNoNewFileButAWholeReplacedOne) {
  Put(R"(C:\Games\old)", "old");
  for (const char *path : {R"(C:\Games\new)", R"(C:\Games\old)"}) {
    Fault last = Refusal(DiskWork::Flush);
    last.first = 2;
    const InjectedFault fault(last);
    const auto file = mNewFiles.Create(path, false);
    Write(*file, "new content");
    EXPECT_EQ(NumberThrownBy([&] { file->Commit(true); }), 57);
  }
  EXPECT_EQ(Entries(R"(C:\Games)"), Texts{"old"});
  EXPECT_EQ(Content(R"(C:\Games\old)"), "new content");
}

// What is young could be about to be locked, so all but one are made to look old.
TEST_F(CopyAndStageTest, WhatAKilledProgramLeftIsRemovedByTheNextWriteInTheFolder) {
  const auto atWork = mNewFiles.Create(R"(C:\Games\y)", true);
  Write(*atWork, "whole");
  const Texts leftovers = {LeftoverName(StagedFileNames, 0), LeftoverName(StagedFileNames, 1),
                           LeftoverName(StagedFileNames, 2)};
  Texts staying = {".turfdesk-backup.tmp", ".turfdesk-ourtenletterword.tmp", leftovers[1], leftovers[2], "y"};
  Put("C:\\Games\\" + leftovers[0], "half a file");
  for (const std::string &own : {staying[0], staying[1]})
    Put("C:\\Games\\" + own, "a user's own");
  std::filesystem::create_directory(Host("C:\\Games\\" + leftovers[1]));
  for (const std::string &name : Entries(R"(C:\Games)"))
    MakeOld(Host(R"(C:\Games\)" + name));
  Put("C:\\Games\\" + leftovers[2], "just begun");

  // Of another program: one and the same looks only once a minute.
  MakePlatform(samples::Utf8(mHome.Path()))->NewFiles().Create(R"(C:\Games\z)", false);
  atWork->Commit(true);
  std::ranges::sort(staying);
  EXPECT_EQ(Entries(R"(C:\Games)"), staying);
  EXPECT_EQ(Content(R"(C:\Games\y)"), "whole");
}

TEST_F(CopyAndStageTest, FreeBytesAreThoseOfTheFoldersDisk) {
  EXPECT_GT(mNewFiles.FreeBytes("C:\\"), 0U);
  Put(R"(C:\Games\x)");
  EXPECT_GT(mNewFiles.FreeBytes(R"(c:\GAMES\)"), 0U);
}

} // namespace

} // namespace turfdesk::test
