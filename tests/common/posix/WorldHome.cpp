// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/WorldHome.h"

namespace turfdesk::test {

WorldHome::WorldHome() = default;

std::filesystem::path DriveOf(const std::filesystem::path &home) { return home / "drive_c"; }

bool IsOfSystem(const std::filesystem::path & /*folder*/) { return false; }

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
