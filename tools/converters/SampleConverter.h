// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"

namespace turfdesk::samples {

/// A run of one of the sample converters. Its program lies in the world that it works on: the home folder is the first
/// one above it that holds a settings tree. On Windows the world is the system.
class SampleConverter {
public:
  /// Takes the path of the program, as its process was told it, and the arguments. These are written, one a line, to a
  /// file beside the program that is named after it and ends in ".arguments".
  SampleConverter(const char *program, const std::vector<std::string> &arguments);

  /// Makes a course of this name and enters it in the catalogue; one that is there is replaced. Throws
  /// std::system_error or RuntimeError.
  void EnterCourse(const std::string &name) const;

private:
  std::filesystem::path mProgram;
};

} // namespace turfdesk::samples
