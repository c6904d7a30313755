// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace turfdesk::test {

/// What a program that has ended leaves. Line ends are LF, as they are where a program writes text to a file of its
/// own system.
struct ProgramRun {
  int status = -1;
  std::string output;
  std::string errors;
};

/// Runs a program with arguments in UTF-8 and waits for its end. Where it ends by itself its status is the exit status.
/// Throws std::runtime_error when it cannot be started.
ProgramRun RunProgram(const std::filesystem::path &program, const std::vector<std::string> &arguments,
                      const std::string &input);

} // namespace turfdesk::test
