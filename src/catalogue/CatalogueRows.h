// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "support/SharedState.h"

#include <string>
#include <string_view>

namespace turfdesk {

/// What the columns of a row hold. Text is the name, Key and Tag the entry's key.
namespace column {
inline constexpr int Filename = 1;
/// File size in bytes, in decimal text.
inline constexpr int Size = 2;
/// The rest exist in course rows only. Libraries is the library list: keys joined by ",".
inline constexpr int Libraries = 3;
inline constexpr int Picture = 4;
inline constexpr int Music = 5;
inline constexpr int Video = 6;
inline constexpr int Text = 7;
} // namespace column

/// Fills Tag and columns from the catalogue, opening the course file for its library list. A course whose file is
/// missing or unreadable has an empty library list; one that may be there is noted in coursesOutOfReach. Text stays the
/// caller's.
void FillCourseRow(SharedState &state, std::string_view courseKey, Row &row);

/// Fills Tag and columns from the catalogue. The library file is not opened.
void FillLibraryRow(SharedState &state, std::string_view libraryKey, Row &row);

/// One of the two above.
using FillRow = void (*)(SharedState &, std::string_view key, Row &row);

/// Fills a row of the list, or removes it when that fails and passes the error on: commands would take what a row lacks
/// for absent, and clear it in the catalogue.
void FillOrRemove(SharedState &state, ListView &list, FillRow fillRow, std::string_view key, Row &row);

/// The library list of a catalogued course, read from its file: keys joined by "," in the file's order, "" for none.
/// A file that cannot be read gives "" and shows nothing.
std::string GetLibrariesInCourse(SharedState &state, std::string_view courseKey);

/// The catalogue does not show that a course's file was replaced, by another edition that asks for other libraries.
/// Where that was so, rows take over what the files say; where a file cannot be read, or asks for none, its row stays.
/// True when a row has changed.
bool UpdateLibraryLists(SharedState &state);

/// The first row whose Tag begins with key. Where there is none and addIfMissing is set, a new row with this Key and
/// Text, whose Tag and columns are the caller's to fill; else null.
Row *FindListRow(std::string_view key, std::string_view text, ListView &list, bool addIfMissing);

/// Copies Tag and columns 1 to 7 of a row to the row of the same key in another list, which is added where addIfMissing
/// is set. Text and Key of a row that exists stay.
void CopyRowToList(const Row &row, ListView &list, bool addIfMissing);

} // namespace turfdesk
