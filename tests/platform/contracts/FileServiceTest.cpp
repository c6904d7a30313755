// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "samples/Basics.h"

namespace turfdesk::test {

namespace {

using namespace std::string_literals;

class FileServiceTest : public PlatformTest {
protected:
  std::unique_ptr<FileService> mService = mPlatform->CreateFileService();
};

TEST(FileService, PathsFallIntoTheirParts) {
  const struct {
    const char *path, *folder, *prefix, *file, *base, *extension;
  } cases[] = {
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
  for (const auto &c : cases) {
    EXPECT_EQ(FileService::GetPathPart(c.path), c.folder);
    EXPECT_EQ(FileService::GetDirPrefix(c.path), c.prefix);
    EXPECT_EQ(FileService::GetFilePart(c.path), c.file);
    EXPECT_EQ(FileService::GetBaseName(c.path), c.base);
    EXPECT_EQ(FileService::GetExtension(c.path), c.extension);
  }
}

TEST_F(FileServiceTest, TellsWhichNamesAFileCanBeGiven) {
  Put(R"(C:\Games\old.hlz)");
  for (const std::string &valid :
       {R"(C:\Games\new.hlz)"s, R"(C:\Games\old.hlz)"s, "c:/GAMES/new"s, "C:\\ new \u00FC\U0001F3CC.hlz"s,
        R"(C:\.hidden)"s, R"(C:\console.hlz)"s, R"(C:\COM10)"s, "C:\\" + std::string(255, 'x')})
    EXPECT_TRUE(mService->IsValidFilename(valid)) << valid;
  for (const std::string &invalid :
       {""s, "new.hlz"s, "C:new.hlz"s, R"(\Games\new.hlz)"s, R"(C:\none\new.hlz)"s, R"(Q:\new.hlz)"s, "C:\\"s,
        R"(C:\Games)"s, R"(C:\games\)"s, "C:\\" + std::string(256, 'x'), "C:\\" + std::string(3000, 'x')})
    EXPECT_FALSE(mService->IsValidFilename(invalid)) << invalid;
  for (const char *name :
       {"new.hlz ",    "new.", "..",       "a<b",           "a>b",    "a\"b",       "a|b",     "a?b",
        "a*b",         "a:b",  "a\tb",     "a\x7F",         "a\xE9",  "con",        "Prn.hlz", "AUX .hlz",
        "NUL.tar.hlz", "com0", "LPT9.hlz", "COM\u00B2.hlz", "CONIN$", "conout$.hlz"})
    EXPECT_FALSE(mService->IsValidFilename(std::string("C:\\") + name)) << name;
}

TEST_F(FileServiceTest, TellsFilesFromFoldersAndDeletesOnlyFilesThatMayGo) {
  Put(R"(C:\Games\x.hlc)", "12345");
  Put(R"(C:\Games\locked)");
  SetReadOnly(Host(R"(C:\Games\locked)"), true);
  for (const char *folder : {R"(C:\Games)", R"(C:\games\)", "C:", "c:/"}) {
    EXPECT_TRUE(mService->DirExists(folder)) << folder;
    EXPECT_FALSE(mService->FileExists(folder)) << folder;
  }
  EXPECT_TRUE(mService->FileExists("c:/GAMES/X.hlc"));
  EXPECT_FALSE(mService->DirExists("c:/GAMES/X.hlc"));
  EXPECT_EQ(mService->GetFileSize(R"(C:\games\X.HLC)"), 5);
  EXPECT_FALSE(mService->DeleteFile(R"(C:\Games\locked)"));
  EXPECT_EQ(mService->LastErrorText(), "Path/File access error");
  EXPECT_TRUE(mService->DeleteFile(R"(C:\games\X.HLC)"));
  EXPECT_EQ(mService->LastError(), 0);
  EXPECT_EQ(Entries(R"(C:\Games)"), Texts{"locked"});
}

// What is young could be about to be locked, so all but one are made to look old.
TEST_F(FileServiceTest, TempFoldersThatWereLeftBehindAreRemovedByTheNextProcess) {
  const std::string ours = mService->GetTempFolder();
  EXPECT_EQ(mService->GetTempFolder(), ours);
  const auto hostOf = [this](const std::string &path) { return samples::HostPath(mPlatform->ToHostPath(path)); };
  const std::filesystem::path parent = hostOf(FileService::GetPathPart(ours));
  const auto left = parent / LeftoverName(TempFolderNames, 0);
  const auto young = parent / LeftoverName(TempFolderNames, 1);
  const auto own = parent / "turfdesk-temp-backup";
  for (const auto &folder : {left, young, own}) {
    samples::WriteFile(folder / "deep" / "x", {});
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
  }
  for (const auto &folder : {left, own, hostOf(ours)})
    MakeOld(folder);

  EXPECT_NE(mPlatform->CreateFileService()->GetTempFolder(), ours);
  EXPECT_FALSE(std::filesystem::exists(left));
  EXPECT_TRUE(mService->DirExists(ours));
  for (const auto &folder : {young, own})
    EXPECT_TRUE(std::filesystem::remove_all(folder)) << folder;
}

TEST_F(FileServiceTest, DocumentsThatAreNotThereAreNotOpened) {
  for (const auto &[document, number] : {std::pair{R"(C:\none.txt)", 53}, {"-help", 76}, {"-help:x", 76}}) {
    mService->OpenDocument(document);
    EXPECT_EQ(mService->LastError(), number) << document;
  }
}

} // namespace

} // namespace turfdesk::test
