// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/windows/Abandoned.h"
#include "platform/windows/FolderEntries.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>

namespace turfdesk {

namespace {

std::wstring SystemPathOf(std::string_view path) {
  std::wstring systemPath;
  EXPECT_EQ(ToSystemPath(path, systemPath), 0U) << path;
  return systemPath;
}

std::string NewFolder() {
  wchar_t parent[MAX_PATH + 1];
  GetTempPathW(MAX_PATH + 1, parent);
  std::wstring folder = parent + FreshName({"turfdesk-test-", ""});
  if (CreateDirectoryW(folder.c_str(), nullptr) == 0)
    throw std::runtime_error("no folder for the test");
  return ToUtf8(folder);
}

} // namespace

FilesTest::FilesTest() : mFolder(NewFolder()) {}

FilesTest::~FilesTest() { RemoveWithContents(SystemPathOf(mFolder)); }

std::string FilesTest::Put(std::string_view name, std::string_view content) {
  const auto file = mNewFiles.Create(Path(name), true);
  Write(*file, content);
  file->Commit(false);
  return Path(name);
}

std::string FilesTest::Content(std::string_view path) {
  const auto file = mFiles.OpenForBinaryRead(path);
  if (!file)
    return "(no file)";
  std::string content(file->Size(), '\0');
  content.resize(file->Read({reinterpret_cast<std::uint8_t *>(content.data()), content.size()}));
  return content;
}

std::vector<std::string> FilesTest::Entries(std::string_view folder) {
  std::vector<std::string> names;
  ForEachEntry(SystemPathOf(folder), [&names](const FolderEntry &entry) { names.push_back(ToUtf8(entry.name)); });
  std::sort(names.begin(), names.end());
  return names;
}

void FilesTest::SetAttributes(std::string_view path, std::uint32_t attributes) {
  EXPECT_NE(SetFileAttributesW(SystemPathOf(path).c_str(), attributes), 0) << path;
}

SystemHandle FilesTest::OpenExclusively(std::string_view path) {
  SystemHandle file;
  EXPECT_EQ(OpenExisting(SystemPathOf(path), GENERIC_READ, 0, file), 0U) << path;
  return file;
}

void Write(StagedFile &file, std::string_view text) {
  file.Write({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
}

std::string LargeContent() {
  std::string content(std::size_t{9} << 20U, '\0');
  for (std::size_t i = 0; i < content.size(); i += 1000)
    content[i] = static_cast<char>(i / 1000);
  return content;
}

} // namespace turfdesk
