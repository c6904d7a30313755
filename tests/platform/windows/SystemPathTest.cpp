// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/SystemPath.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/WideText.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace turfdesk {

namespace {

TEST(SystemPath, HasTheNamesAsTheyStand) {
  const struct {
    const char *path;
    const wchar_t *systemPath;
  } cases[] = {
      {"C:", LR"(\\?\C:\)"},
      {"c:/", LR"(\\?\C:\)"},
      {"c:\\Games\\.\\\\x.hlc", LR"(\\?\C:\Games\x.hlc)"},
      {"C:/none/..\\Games\\..\\..\\..\\Caf\u00E9 \U0001F3CC", L"\\\\?\\C:\\Caf\u00E9 \U0001F3CC"},
      {"\\\\server\\share", LR"(\\?\UNC\server\share\)"},
      {"//server/share/../x", LR"(\\?\UNC\server\share\x)"},
  };
  for (const auto &c : cases) {
    std::wstring systemPath;
    EXPECT_EQ(ToSystemPath(c.path, systemPath), 0U) << c.path;
    EXPECT_EQ(ToUtf8(systemPath), ToUtf8(c.systemPath));
  }
}

TEST(SystemPath, WhatCannotBeOneHasTheNumberThatItHasEverywhere) {
  const struct {
    int number;
    std::vector<std::string> paths;
  } cases[] = {
      {52,
       {"C:\\a*b", "C:\\a:b", "C:\\fi\x01le", "C:\\file.", "C:\\file ", "C:\\nul.txt\\x", "C:\\COM\u00B2", "C:\\\xFF",
        "C:\\" + std::string(256, 'x'), "\\\\server\\sh?re\\x", "\\\\.\\C:\\x"}},
      {76, {"", "file", "C:file", "\\file", "1:\\file"}},
  };
  for (const auto &[number, paths] : cases)
    for (const std::string &path : paths) {
      std::wstring systemPath;
      EXPECT_EQ(static_cast<int>(NumberOfSystemError(ToSystemPath(path, systemPath))), number) << path;
    }
  std::wstring systemPath;
  std::string longest = "C:\\";
  for (int i = 0; i < 255; ++i)
    longest += "\u754C";
  EXPECT_EQ(ToSystemPath(longest, systemPath), 0U) << "255 characters in 765 bytes";
}

TEST(SystemPath, AUsersPathIsTakenFromTheCurrentFolder) {
  wchar_t before[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, before);
  ASSERT_NE(SetCurrentDirectoryW(L"C:\\windows"), 0);
  const struct {
    const char *path, *fullPath;
  } cases[] = {
      {"x.hlc", "C:\\windows\\x.hlc"},
      {"../new/./x", "C:\\new\\x"},
      {"C:x", "C:\\windows\\x"},
      {"\\x", "C:\\x"},
      {"/x", "C:\\x"},
      {".", "C:\\windows"},
      {"..\\..", "C:\\"},
      {"c:/Games\\x.hlc", "c:/Games\\x.hlc"},
      {"Q:", "Q:"},
      {"\\\\server\\share", "\\\\server\\share"},
      {"\\\\?\\C:\\Games\\x", "C:\\Games\\x"},
      {"\\\\?\\UNC\\server\\share\\x", "\\\\server\\share\\x"},
      {"nul", ""},
      {"x. ", ""},
      {"a?b", ""},
  };
  for (const auto &c : cases)
    EXPECT_EQ(FullPath(c.path), c.fullPath) << c.path;
  SetCurrentDirectoryW(before);
}

TEST(SystemError, TheSystemsWordsFitIntoASentence) {
  for (const std::uint32_t error : {ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND, ERROR_SHARING_VIOLATION}) {
    const std::string words = SystemWords(error);
    EXPECT_GT(words.size(), 5U);
    EXPECT_EQ(words.find_first_of("\r\n"), std::string::npos) << words;
  }
  EXPECT_EQ(SystemWords(0xDEADBEEF), "System error 3735928559");
}

} // namespace

} // namespace turfdesk
