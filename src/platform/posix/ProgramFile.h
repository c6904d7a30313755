// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <filesystem>

namespace turfdesk {

/// Host path of the program that is running; empty when the system does not tell.
inline std::filesystem::path ProgramFile() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::path() : program;
}

} // namespace turfdesk
