// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/SideFiles.h"

#include "support/basVorinFile.h"
#include "support/basVorinString.h"

#include <string>

namespace turfdesk {

namespace {

bool DeleteSideFile(SharedState &state, std::string_view folder, std::string_view key, std::string_view extension) {
  const std::string path =
      AddBackslash(state.installDir) + AddBackslash(folder) + std::string(key) + std::string(extension);
  return !FileExists(state, path) || DeleteFile(state, path);
}

} // namespace

bool DeleteCourseStats(SharedState &state, std::string_view courseKey) {
  return DeleteSideFile(state, "Courses", courseKey, ".sta");
}

bool DeleteLibrarySwapFile(SharedState &state, std::string_view libraryKey) {
  return DeleteSideFile(state, "SwapFiles", libraryKey, ".swp");
}

} // namespace turfdesk
