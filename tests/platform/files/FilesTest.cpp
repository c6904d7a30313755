// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/posix/HomeFolder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace turfdesk {

namespace {

std::filesystem::path NewFolder() {
  std::string path = (std::filesystem::temp_directory_path() / "turfdesk-test-XXXXXX").string();
  if (mkdtemp(path.data()) == nullptr)
    throw std::runtime_error("no folder for the test");
  return std::filesystem::canonical(path);
}

} // namespace

FilesTest::FilesTest() : mFolder(NewFolder()), mHome(mFolder / "data" / "turfdesk"), mPaths(mHome.string()) {
  MakeHome(mHome.string());
}

FilesTest::~FilesTest() {
  std::error_code error;
  std::filesystem::current_path("/", error);
  std::filesystem::remove_all(mFolder, error);
}

void FilesTest::Put(std::string_view path, std::string_view content) const {
  std::filesystem::create_directories(Host(path).parent_path());
  std::ofstream(Host(path), std::ios::binary) << content;
}

std::string FilesTest::Content(std::string_view path) const {
  std::ifstream file(Host(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> FilesTest::Entries(std::string_view folder) const {
  std::vector<std::string> names;
  for (const auto &entry : std::filesystem::directory_iterator(Host(folder)))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

} // namespace turfdesk
