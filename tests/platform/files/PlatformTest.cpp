// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/Platform.h"

#include <sys/resource.h>

namespace turfdesk {

namespace {

class PlatformTest : public FilesTest {
protected:
  std::unique_ptr<Platform> mPlatform = MakePlatform(mHome.string());
};

TEST_F(PlatformTest, TranslatesWhatAUserTypes) {
  std::filesystem::current_path(Host(""));
  const struct {
    std::string path, windowsPath;
  } cases[] = {
      {"Games/x.hlc", "C:\\Games\\x.hlc"},        {Host("x.hlc").string(), "C:\\x.hlc"},
      {"c:/Games\\x.hlc", "c:/Games\\x.hlc"},     {"Q:", "Q:"},
      {"\\\\server\\share", "\\\\server\\share"}, {"x:y", ""},
  };
  for (const auto &c : cases)
    EXPECT_EQ(mPlatform->ToWindowsPath(c.path), c.windowsPath);
  EXPECT_EQ(mPlatform->ToHostPath("c:\\Games\\x.hlc"), Host("Games/x.hlc").string());
  EXPECT_EQ(mPlatform->ToHostPath("C:\\x?"), "");
}

TEST_F(PlatformTest, KnowsWhereItsProgramLies) {
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(mPlatform->ToHostPath(mPlatform->ProgramFolder()), program.parent_path().string());
}

TEST_F(PlatformTest, AFileServiceNeedsADrive) {
  EXPECT_TRUE(mPlatform->CreateFileService()->DirExists("C:\\"));
  std::filesystem::remove_all(mHome / "drives");
  EXPECT_EQ(NumberThrownBy([this] { mPlatform->CreateFileService(); }), 68);
}

TEST_F(PlatformTest, ALimitOnFileSizesIsAFullDiskAndNotTheEnd) {
  Put("from", std::string(std::size_t{1} << 20U, 'x'));
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{std::size_t{1} << 16U, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_EQ(NumberThrownBy([this] { mPlatform->Copier().Copy("C:\\from", "C:\\to", {}); }), 61);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(Entries(""), std::vector<std::string>{"from"});
}

} // namespace

} // namespace turfdesk
