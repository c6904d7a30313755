// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "catalogue/CatalogueRows.h"
#include "platform/ListView.h"
#include "support/SharedState.h"
#include "support/StringTable.h"

#include <array>
#include <cstddef>
#include <string>

namespace turfdesk {

/// A kind of media that the user may point a course at. The video is not among them.
struct CourseMedia {
  /// Number of the kind, that of its controls: 0 picture, 1 music, 3 text.
  int index;
  int column;
  const char *valueName;
  StringId dialogTitle;
  const char *defaultExtension;
  StringId description;
  /// What follows the description in the file dialog's filter: alternatives of description and pattern, each ending in
  /// a bar.
  const char *filter;
  StringId unableToSave;
};

/// In the order in which they are saved.
inline constexpr std::array CourseMediaKinds = {
    CourseMedia{0, column::Picture, "Picture", StringId::SelectPicture, ".bmp", StringId::Pictures,
                " (*.bmp; *.tga; *.dds)|*.bmp; *.tga; *.dds|", StringId::UnableToSavePicture},
    CourseMedia{1, column::Music, "Music", StringId::SelectMusic, ".mp3", StringId::Music,
                " (*.wav; *.mp3)|*.wav; *.mp3|", StringId::UnableToSaveMusic},
    CourseMedia{3, column::Text, "Text", StringId::SelectText, ".rtf", StringId::Text,
                " (*.txt;*.rtf;*.htm)|*.txt;*.rtf;*.htm|", StringId::UnableToSaveText}};

/// Writes the paths of a course's picture, music and text, in the order of CourseMediaKinds, whatever they hold, to the
/// catalogue and each that could be written to the course's row. A write that fails is shown, and the next follows.
/// Nothing is written where the course has left the catalogue, or its media are not those of the row any more; the user
/// has been told. True when all were written.
bool SaveCourseMedia(SharedState &state, Row &course, const std::array<std::string, CourseMediaKinds.size()> &paths);

} // namespace turfdesk
