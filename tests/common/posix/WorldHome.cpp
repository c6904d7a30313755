// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/WorldHome.h"

#include <chrono>

namespace turfdesk::test {

WorldHome::WorldHome() = default;

std::filesystem::path DriveOf(const std::filesystem::path &home) { return home / "drive_c"; }

bool IsOfSystem(const std::filesystem::path & /*path*/) { return false; }

std::vector<std::string> MakeAliases(const std::filesystem::path &home, const std::string &folder) {
  const std::filesystem::path host = HostIn(home, folder);
  std::filesystem::create_directory_symlink(host, HostIn(home, R"(C:\Link)"));
  std::filesystem::create_directory_symlink(host, home / "drives/g:");
  const std::filesystem::path links = HostIn(home, R"(C:\Links to files)");
  std::filesystem::create_directory(links);
  for (const auto &entry : std::filesystem::directory_iterator(host))
    std::filesystem::create_symlink(entry.path(), links / entry.path().filename());
  return {R"(C:\Link)", "G:", R"(C:\Links to files)"};
}

void MakeOld(const std::filesystem::path &path) {
  std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::years(10));
}

void Fill(const WorldHome &home, void (*build)(const std::filesystem::path &home)) {
  using std::filesystem::copy_options;
  // Each is made once: a copy is had sooner than a new one.
  static std::map<decltype(build), TempFolder> models;
  const auto [model, isNew] = models.try_emplace(build);
  if (isNew)
    build(model->second.Path());
  std::filesystem::copy(model->second.Path(), home.Path(), copy_options::recursive | copy_options::copy_symlinks);
}

} // namespace turfdesk::test
