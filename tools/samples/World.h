// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"

#include <optional>

namespace turfdesk::samples {

/// A home folder of the program to be made, with a drive C: that has the game on it.
struct WorldSpec {
  /// May exist; without meaning on Windows, where the world is the system itself. Files of the same names are replaced;
  /// the catalogue's entries are added to those there are.
  std::filesystem::path home;
  /// So many courses with generated names, for measuring. Left out: a dozen hand-picked ones with all that can befall
  /// a course: no, one, three and fifty libraries, shared and missing ones, media, missing files, accents.
  std::optional<std::size_t> courses = {};
  /// Of each generated course. There are as many libraries as courses, so each is shared by this many.
  std::size_t librariesPerCourse = 3;
  /// Size of a course or library file in bytes.
  std::uint64_t fileSize = 65536;
  std::uint64_t seed = 1;
  /// Packages and loose files to install in C:\Downloads, the troublesome ones in a folder of their own, and courses to
  /// convert in C:\Old Courses.
  bool downloads = true;
  /// The folder of the sample converters, which are copied beside the game's programs; "" copies none.
  std::filesystem::path converters = {};
};

/// Makes the world: files, folders and the entries of the settings tree. Throws std::system_error or RuntimeError.
void MakeWorld(const WorldSpec &spec);

/// Writes what C:\Downloads of a world holds into a folder.
void WriteDownloads(const std::filesystem::path &folder, std::uint64_t fileSize, std::uint64_t seed);

} // namespace turfdesk::samples
