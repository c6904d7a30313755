// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/WorldHome.h"

#include "samples/Basics.h"

#include <algorithm>
#include <random>

namespace turfdesk::test {

namespace {

void AddFile(const std::filesystem::path &path, const std::filesystem::path &root,
             std::map<std::string, std::string> &files) {
  const samples::Bytes content = samples::ReadFile(path);
  const std::u8string name = path.lexically_relative(root).generic_u8string();
  files[{name.begin(), name.end()}] = {content.begin(), content.end()};
}

void AddFilesBelow(const std::filesystem::path &folder, const std::filesystem::path &root,
                   std::map<std::string, std::string> &files) {
  for (const auto &entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.is_regular_file())
      AddFile(entry.path(), root, files);
}

} // namespace

TempFolder::TempFolder() {
  std::random_device random;
  do {
    mPath = std::filesystem::temp_directory_path() / ("turfdesk-test-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(mPath));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(mPath, ignored);
}

std::filesystem::path HostIn(const std::filesystem::path &home, const std::string &windowsPath) {
  std::string below = windowsPath.substr(std::string("C:\\").size());
  std::ranges::replace(below, '\\', '/');
  return (DriveOf(home) / samples::HostPath(below)).make_preferred();
}

std::map<std::string, std::string> FilesBelow(const std::filesystem::path &folder) {
  std::map<std::string, std::string> files;
  AddFilesBelow(folder, folder, files);
  return files;
}

std::map<std::string, std::string> FilesOnDrive(const std::filesystem::path &home) {
  const std::filesystem::path root = DriveOf(home);
  std::map<std::string, std::string> files;
  for (const auto &entry : std::filesystem::directory_iterator(root)) {
    if (IsOfSystem(entry.path()))
      continue;
    if (entry.is_regular_file())
      AddFile(entry.path(), root, files);
    if (entry.is_directory())
      AddFilesBelow(entry.path(), root, files);
  }
  return files;
}

void SetReadOnly(const std::filesystem::path &file, bool readOnly) {
  std::filesystem::permissions(file, std::filesystem::perms::owner_write | std::filesystem::perms::group_write,
                               readOnly ? std::filesystem::perm_options::remove : std::filesystem::perm_options::add);
}

} // namespace turfdesk::test
