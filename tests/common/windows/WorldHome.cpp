// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/WorldHome.h"

#include "common/ScratchSystem.h"
#include "platform/CaseFold.h"
#include "samples/Basics.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <stdexcept>

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

void MakeOld(const std::filesystem::path &path) {
  const HANDLE entry =
      CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  const FILETIME longAgo = {0, 0x01C00000};
  const BOOL isSet = SetFileTime(entry, nullptr, nullptr, &longAgo);
  CloseHandle(entry);
  if (isSet == 0)
    throw std::runtime_error("its time cannot be set: " + samples::Utf8(path));
}

void Fill(const WorldHome &home, void (*build)(const std::filesystem::path &home)) { build(home.Path()); }

} // namespace turfdesk::test
