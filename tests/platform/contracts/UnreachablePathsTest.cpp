// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "common/UnreadyDrive.h"

#include <functional>

namespace turfdesk::test {

namespace {

/// A path that cannot be reached has one number, whatever it is used for.
class UnreachablePathsTest : public PlatformTest {
protected:
  UnreachablePathsTest() {
    Put(R"(C:\file)", "content");
    Put(R"(C:\locked)", "content");
    SetReadOnly(Host(R"(C:\locked)"), true);
    std::filesystem::create_directory(Host(R"(C:\folder)"));
  }

  void Expect(const PathsByNumber &cases, const std::function<void(const std::string &)> &use) const {
    for (const auto &[number, paths] : cases)
      for (const std::string &path : paths)
        EXPECT_EQ(NumberThrownBy([&, &used = path] { use(used); }), number) << path;
  }

  const Texts mBadNames = [] {
    Texts paths = {"C:\\" + std::string(256, 'x')};
    for (const char *name :
         {"a*b", "a:b", "fi\x01le", "file.", "file ", "CON", "nul.txt\\x", "COM\u00B2", "no?ne\\x", "\xFF"})
      paths.push_back(std::string("C:\\") + name);
    return paths;
  }();
  const Texts mNoPaths = {"", "file", "C:file", "\\file", "1:\\file", R"(C:\file\x)"};
  UnreadyDrive mDrive{mHome.Path()};
  std::unique_ptr<FileService> mService = mPlatform->CreateFileService();
};

TEST_F(UnreachablePathsTest, FilesThatAreToBeUsed) {
  PathsByNumber cases = {{52, mBadNames},
                         {53, {R"(C:\none)"}},
                         {68, {R"(Q:\x)", R"(Q:\folder\x)"}},
                         {71, {R"(A:\x)", R"(A:\folder\x)"}},
                         {75, {R"(C:\folder)", "C:", "C:\\"}},
                         {76, mNoPaths}};
  cases[76].emplace_back(R"(C:\none\x)");
  Expect(cases, [this](const std::string &path) { CopyNow(mPlatform->Copier(), path, R"(C:\new)", {}); });
  Expect(cases, [this](const std::string &path) { mPlatform->Programs().Shell(path, {"x"}, WindowStyle::Hidden); });
  for (const auto &[number, paths] : cases)
    for (const std::string &path : paths) {
      EXPECT_FALSE(mService->DeleteFile(path)) << path;
      EXPECT_EQ(mService->LastError(), number) << path;
      EXPECT_EQ(mService->LastErrorText(), ErrorText(ErrorNumber{number}));
      EXPECT_FALSE(mService->FileExists(path)) << path;
      EXPECT_EQ(mService->FileMayExist(path), number == 71) << path;
      EXPECT_EQ(mService->DirExists(path), number == 75) << path;
      EXPECT_EQ(mService->GetFileSize(path), 0) << path;
      std::unique_ptr<BinaryFile> file;
      EXPECT_EQ(NumberThrownBy([&, &used = path] { file = mPlatform->Files().OpenForBinaryRead(used); }),
                number == 52 ? 52 : 0)
          << path;
      EXPECT_EQ(file, nullptr) << path;
    }
  EXPECT_EQ(Entries("C:\\"), (Texts{"file", "folder", "locked"}));
}

TEST_F(UnreachablePathsTest, FilesThatAreToBeMade) {
  PathsByNumber cases = {{52, mBadNames},
                         {68, {R"(Q:\x)", R"(Q:\folder\x)"}},
                         {71, {R"(A:\x)", R"(A:\folder\x)"}},
                         {75, {R"(C:\locked)", R"(C:\folder)", "C:\\"}},
                         {76, mNoPaths}};
  cases[52].emplace_back("C:\\" + LeftoverName(StagedFileNames));
  cases[76].emplace_back(R"(C:\file\x\y)");
  Expect(cases, [this](const std::string &path) { mPlatform->NewFiles().Create(path, true); });
  cases[76].emplace_back(R"(C:\none\x)");
  Expect(cases, [this](const std::string &path) { mPlatform->NewFiles().Create(path, false); });
  Expect(cases, [this](const std::string &path) { CopyNow(mPlatform->Copier(), R"(C:\file)", path, {}); });
  EXPECT_EQ(Entries("C:\\"), (Texts{"file", "folder", "locked"}));
  EXPECT_EQ(Content(R"(C:\locked)"), "content");
}

TEST_F(UnreachablePathsTest, Folders) {
  const PathsByNumber drives = {{68, {"Q:", "Q:\\", R"(Q:\folder)"}}, {71, {"A:", "A:\\", R"(A:\folder)"}}};
  PathsByNumber cases = drives;
  cases[76] = {R"(C:\none)", R"(C:\file)", "C:\\a*b", "", "x"};
  FolderReader &reader = mPlatform->Folders();
  Expect(cases, [&reader](const std::string &path) { reader.Subfolders(path); });
  Expect(cases, [&reader](const std::string &path) { reader.Files(path, "*"); });
  Expect(cases, [&reader](const std::string &path) { reader.CanonicalFolder(path); });
  Expect({{52, {"C:\\a*b"}}, {68, {R"(Q:\x)"}}, {71, {R"(A:\x)"}}, {76, {R"(C:\none\x)", "", "x"}}},
         [&reader](const std::string &path) { reader.MakeFolder(path); });
  cases = drives;
  cases[76] = {R"(C:\none)", "", "x"};
  Expect(cases, [this](const std::string &path) { mPlatform->NewFiles().FreeBytes(path); });
}

} // namespace

} // namespace turfdesk::test
