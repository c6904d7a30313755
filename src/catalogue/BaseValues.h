// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <array>
#include <string>
#include <string_view>

namespace turfdesk {

/// A value directly on the game's own settings key. The program only reads these.
struct BaseValue {
  std::string_view name;
  /// What holds when the value is absent.
  std::string_view defaultValue;
};

/// Root of the game's folders.
inline constexpr BaseValue InstallDirValue = {"InstallDir", R"(C:\QuillonGolf)"};
/// Address of the download site.
inline constexpr BaseValue CourseDownloadValue = {"CourseDownload", "https://www.kestravon.example/marrowfell2002/"};
/// Folder of the companion programs.
inline constexpr BaseValue TurfManagerValue = {"TurfManager", R"(c:\Program Files\KESTRAVON\Marrowfell 2002\Bin)"};
/// Folder in which browsing for courses to convert starts.
inline constexpr BaseValue TargetValue = {"Target", R"(C:\KESTRAVON)"};

inline constexpr std::array BaseValues = {InstallDirValue, CourseDownloadValue, TurfManagerValue, TargetValue};

std::string ReadBaseValue(SharedState &state, const BaseValue &value);

} // namespace turfdesk
