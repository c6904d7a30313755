// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <array>

namespace turfdesk {

struct FileType {
  /// The name of its key under HKEY_CLASSES_ROOT.
  const char *extension;
  /// The default value of that key.
  const char *text;
};

inline constexpr std::array FileTypes = {FileType{".hlb", "KESTRAVON Library"}, FileType{".hlc", "KESTRAVON Course"},
                                         FileType{".hlz", "KESTRAVON Compressed Course"}};

/// Announces the program's three file types to the platform. A failure is told in plain boxes and stops nothing.
void RegisterFileTypes(SharedState &state);

} // namespace turfdesk
