// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/WorldHome.h"

#include "common/ScratchSystem.h"
#include "platform/CaseFold.h"
#include "samples/Basics.h"

#include <algorithm>
#include <array>

namespace turfdesk::test {

WorldHome::WorldHome() { EmptyScratchSystem(); }

std::filesystem::path DriveOf(const std::filesystem::path & /*home*/) { return "C:\\"; }

bool IsOfSystem(const std::filesystem::path &path) {
  constexpr std::array<std::string_view, 6> own = {"Program Files", "Program Files (x86)", "ProgramData", "users",
                                                   "windows",       ".windows-serial"};
  const std::string name = samples::Utf8(path.filename());
  return std::ranges::any_of(own, [&name](std::string_view other) { return EqualsIgnoringCase(name, other); });
}

std::vector<std::string> MakeAliases(const std::filesystem::path & /*home*/, const std::string &folder) {
  return {OnWholeDisk(folder)};
}

void Fill(const WorldHome &home, void (*build)(const std::filesystem::path &home)) { build(home.Path()); }

} // namespace turfdesk::test
