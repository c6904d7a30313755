// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string>
#include <string_view>

namespace turfdesk {

// The record of what is installed: one key in the settings tree for each course and each library, named by its GUID in
// braces. Nothing is cached here; what the catalogue says is read from the tree when it is needed.

/// The game's own settings key, with its trailing backslash.
inline constexpr std::string_view BaseKey = R"(Software\KESTRAVON\Marrowfell 2002\)";
inline constexpr std::string_view CoursesKey = R"(Software\KESTRAVON\Marrowfell 2002\Courses)";
inline constexpr std::string_view LibrariesKey = R"(Software\KESTRAVON\Marrowfell 2002\Libraries)";

// Accessors: "" for an entry or a value that is missing. Paths are full Windows paths.
std::string GetCourseName(SharedState &state, std::string_view courseKey);
std::string GetCourseFilename(SharedState &state, std::string_view courseKey);
std::string GetCoursePicture(SharedState &state, std::string_view courseKey);
std::string GetCourseMusic(SharedState &state, std::string_view courseKey);
std::string GetCourseVideo(SharedState &state, std::string_view courseKey);
std::string GetCourseText(SharedState &state, std::string_view courseKey);
std::string GetLibraryName(SharedState &state, std::string_view libraryKey);
std::string GetLibraryFilename(SharedState &state, std::string_view libraryKey);

bool CourseKeyExists(SharedState &state, std::string_view courseKey);
bool LibraryKeyExists(SharedState &state, std::string_view libraryKey);

/// Key path of an entry.
std::string CourseEntryKey(std::string_view courseKey);
std::string LibraryEntryKey(std::string_view libraryKey);

/// Writes an entry. Media values that exist are left alone, so a reinstall keeps them; absent ones become "". A write
/// that fails is shown, stops the later ones and makes the result false; values written so far stay.
bool RegisterCourse(SharedState &state, std::string_view courseKey, std::string_view name, std::string_view filename);

/// Writes an entry. A write that fails is shown and makes the result false.
bool RegisterLibrary(SharedState &state, std::string_view libraryKey, std::string_view name, std::string_view filename);

} // namespace turfdesk
