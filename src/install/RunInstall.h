// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/StatusWindow.h"
#include "support/SharedState.h"

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// What the file list of the install dialog offers.
inline constexpr std::string_view InstallablePattern = "*.hlc;*.hlb;*.hlz";

/// What is to be installed. Directories are full Windows paths.
struct InstallRequest {
  std::string sourceDir;
  std::string destinationDir;
  /// Names of files in sourceDir, in the order of the file list.
  std::vector<std::string> files;
};

/// The run of an install: takes the files one by one and stops at the first that fails. Courses and libraries are
/// installed in place when both directories are the same, whatever they are called; packages always go to the
/// destination. What stands in the way is told through the prompts, the verdict stands in the window's route label and
/// is the result. No run-time error comes out; one from a file's own routine counts as that file's failure.
bool RunInstall(SharedState &state, const InstallRequest &request, StatusWindow &window);

} // namespace turfdesk
