// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace turfdesk::bench {

/// Sizes in bytes of the files of a course to be packed.
struct HeavySizes {
  std::uint64_t course = 0;
  std::uint64_t library = 0; // of each of three
  std::uint64_t music = 0;
};

/// A home folder with one installed course that has three libraries, a picture, music and a text.
struct HeavyCourse {
  std::filesystem::path home;
  /// Key of the course.
  std::string key;
  /// All its files, in the order in which they go into a package.
  std::vector<std::string> files;
};

/// Makes the home folder and what is in it.
HeavyCourse MakeHeavyCourse(const std::filesystem::path &home, const HeavySizes &sizes);

} // namespace turfdesk::bench
