// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/posix/PosixBinaryFiles.h"

#include <sys/stat.h>

namespace turfdesk {

namespace {

class BinaryFilesTest : public FilesTest {
protected:
  PosixBinaryFiles mFiles{mPaths};
};

std::string ReadText(BinaryFile &file, std::size_t count) {
  std::vector<std::uint8_t> buffer(count);
  buffer.resize(file.Read(buffer));
  return {buffer.begin(), buffer.end()};
}

TEST_F(BinaryFilesTest, ReadsFromAnyPlaceToTheEnd) {
  Put("Games/x.hlc", "0123456789");
  const auto file = mFiles.OpenForBinaryRead("C:\\games\\X.hlc");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->Size(), 10U);
  EXPECT_EQ(ReadText(*file, 4), "0123");
  EXPECT_EQ(ReadText(*file, 100), "456789");
  EXPECT_EQ(ReadText(*file, 1), "");
  file->Seek(8);
  EXPECT_EQ(ReadText(*file, 2), "89");
  file->Seek(99);
  EXPECT_EQ(ReadText(*file, 1), "");
  Put("Games/x.hlc", "0123456789ab");
  EXPECT_EQ(file->Size(), 10U) << "as it was when it was opened";
  file->Seek(9);
  EXPECT_EQ(ReadText(*file, 9), "9ab");
}

TEST_F(BinaryFilesTest, WhatIsNoFileIsNullOrAnError) {
  std::filesystem::create_directory(Host("folder"));
  std::filesystem::create_symlink("nowhere", Host("broken"));
  Put("file", "");
  mkfifo(Host("pipe").c_str(), 0600);
  for (const char *absent :
       {"", "C:\\none", "C:\\none\\x", "C:\\folder", "C:", "C:\\broken", "C:\\file\\x", "Q:\\x", "x"})
    EXPECT_EQ(mFiles.OpenForBinaryRead(absent), nullptr) << absent;
  const PathsByNumber refused = {{52, {"C:\\a*b", "C:\\CON"}}, {75, {"C:\\pipe", "Z:\\dev\\zero"}}};
  for (const auto &[number, paths] : refused)
    for (const std::string &path : paths)
      EXPECT_EQ(NumberThrownBy([&, &path = path] { mFiles.OpenForBinaryRead(path); }), number) << path;
}

} // namespace

} // namespace turfdesk
