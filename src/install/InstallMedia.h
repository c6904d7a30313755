// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "platform/StatusWindow.h"
#include "support/SharedState.h"

#include <cstdint>
#include <string_view>

namespace turfdesk {

/// The media that a package can carry for its course.
enum class MediaKind : std::int16_t { Picture = 1, Music = 2, Video = 3, Text = 4 };

/// Copies a media file next to its course, over one that is there, and records it in the catalogue and then in the row.
/// source is the file's full path, destDir a directory, row the course's row. The labels show the work. What stands in
/// the way has been shown when the result is false: a failed copy leaves catalogue and row as they were, a failed write
/// leaves the copied file unless it has replaced another, which comes back then. A course that is no longer catalogued
/// is a failure before anything is touched.
bool InstallMedia(SharedState &state, std::string_view source, std::string_view destDir, Row &row, MediaKind kind,
                  Label &fileLabel, Label &routeLabel);

} // namespace turfdesk
