// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"

#include <span>

namespace turfdesk::samples {

/// A run of one of the sample converters. Its program lies in the world that it works on: the home folder is the first
/// one above it that holds a settings tree.
class SampleConverter {
public:
  /// arguments are those of the process, the path of the program first. They are written, one a line and the path left
  /// out, to a file beside the program that is named after it and ends in ".arguments".
  explicit SampleConverter(std::span<char *const> arguments);

  /// Makes a course of this name and enters it in the catalogue; one that is there is replaced. Throws
  /// std::system_error or RuntimeError.
  void EnterCourse(const std::string &name) const;

private:
  std::filesystem::path mProgram;
};

} // namespace turfdesk::samples
