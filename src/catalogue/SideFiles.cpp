// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/SideFiles.h"

#include "support/basVorinFile.h"
#include "support/basVorinString.h"

#include <algorithm>

namespace turfdesk {

namespace {

bool IsHexadecimal(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

/// Settings that come from elsewhere may hold any key, such as one that leads out of the folder.
bool IsGuid(std::string_view key) {
  constexpr std::string_view form = "{00000000-0000-0000-0000-000000000000}";
  return std::ranges::equal(key, form, [](char c, char place) { return place == '0' ? IsHexadecimal(c) : c == place; });
}

std::string SideFilePath(const SharedState &state, std::string_view folder, std::string_view key,
                         std::string_view extension) {
  return IsGuid(key) ? AddBackslash(state.installDir) + AddBackslash(folder) + std::string(key) + std::string(extension)
                     : "";
}

bool DeleteSideFile(SharedState &state, const std::string &path) { return path.empty() || DeleteIfThere(state, path); }

} // namespace

std::string CourseStatsPath(const SharedState &state, std::string_view courseKey) {
  return SideFilePath(state, "Courses", courseKey, ".sta");
}

std::string LibrarySwapFilePath(const SharedState &state, std::string_view libraryKey) {
  return SideFilePath(state, "SwapFiles", libraryKey, ".swp");
}

bool DeleteCourseStats(SharedState &state, std::string_view courseKey) {
  return DeleteSideFile(state, CourseStatsPath(state, courseKey));
}

bool DeleteLibrarySwapFile(SharedState &state, std::string_view libraryKey) {
  return DeleteSideFile(state, LibrarySwapFilePath(state, libraryKey));
}

} // namespace turfdesk
