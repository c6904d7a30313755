// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <cstddef>
#include <string>

namespace turfdesk {

/// The files that a course of MF2001 consists of.
inline constexpr const char *ConvertiblePattern = "*.qar;*.qtn; *.qtb";

/// What the command that runs the converter shows before the description of a run-time error.
inline constexpr const char *ConvertLabel = "frmCourseConvert.btnConvert_Click(): ";

inline constexpr const char *InvalidDirectoryCaption = "Invalid Directory";
/// The blanks push the second sentence to a line of its own.
inline constexpr const char *InvalidDirectoryText = "This directory does not contain a course that can be converted."
                                                    "                           "
                                                    "Please select a valid directory.";
inline constexpr const char *ConversionWaitText = "Please wait while your course is being converted...";

/// What a conversion does with windows.
class ConversionWindows {
public:
  ConversionWindows() = default;
  ConversionWindows(const ConversionWindows &) = delete;
  ConversionWindows &operator=(const ConversionWindows &) = delete;
  virtual ~ConversionWindows() = default;

  /// Shows that the folder holds no course, and returns when the user has seen it.
  virtual void ShowInvalidDirectory() = 0;
  /// Shows that the converter is at work, and returns at once.
  virtual void ShowWait() = 0;
  /// Paints the main window, the form and the wait without delay.
  virtual void RefreshAll() = 0;
  /// What the user has typed and clicked since the wait was shown is lost.
  virtual void HideWait() = 0;
  /// Takes the form from the screen for good.
  virtual void UnloadForm() = 0;
  virtual void RefreshMain() = 0;
};

struct ConversionRequest {
  /// The folder of the old course.
  std::string folder;
  /// How many files in it fit the pattern.
  std::size_t fileCount = 0;
};

/// Has the course in a folder converted and installed by the external converter, waits for its end, and reloads both
/// lists. The user is told how it went; what counts is whether the number of courses has changed, and that is the
/// result. Where nothing could be started the form stays, for another try. Throws what the settings throw.
bool RunLayoutConverter(SharedState &state, const ConversionRequest &request, ConversionWindows &windows);

} // namespace turfdesk
