// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"

#include <chrono>

namespace turfdesk::samples {

/// A course of the previous game, as far as our stand-in for the converter cares: its files say in plain text what is
/// to become of it.
struct OldCourse {
  /// Name of the course that the conversion makes; one of the same name is replaced. "": it cannot be converted.
  std::string name = {};
  /// How long the conversion takes.
  std::chrono::milliseconds duration = {};
};

/// Writes the files of an old course into a folder, which is made. Throws std::system_error.
void WriteOldCourse(const std::filesystem::path &folder, const OldCourse &course);

/// What the files in a folder say; nothing when there are none. Throws std::system_error.
OldCourse ReadOldCourse(const std::filesystem::path &folder);

/// Writes what C:\Old Courses of a world holds into a folder.
void WriteOldCourses(const std::filesystem::path &folder);

} // namespace turfdesk::samples
