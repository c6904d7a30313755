// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/CatalogueRows.h"

#include "catalogue/Catalogue.h"
#include "content/CourseFile.h"
#include "support/ErrorHandling.h"
#include "support/basVorinFile.h"

namespace turfdesk {

namespace {

std::string DecimalText(double bytes) { return std::to_string(static_cast<unsigned long long>(bytes)); }

void FillFileColumns(SharedState &state, std::string_view key, const std::string &filename, Row &row) {
  row.SetTag(key);
  row.SetSubItems(column::Filename, filename);
  row.SetSubItems(column::Size, DecimalText(GetFileSize(state, filename)));
}

} // namespace

void FillCourseRow(SharedState &state, std::string_view courseKey, Row &row) {
  FillFileColumns(state, courseKey, GetCourseFilename(state, courseKey), row);
  row.SetSubItems(column::Libraries, GetLibrariesInCourse(state, courseKey));
  row.SetSubItems(column::Picture, GetCoursePicture(state, courseKey));
  row.SetSubItems(column::Music, GetCourseMusic(state, courseKey));
  row.SetSubItems(column::Video, GetCourseVideo(state, courseKey));
  row.SetSubItems(column::Text, GetCourseText(state, courseKey));
}

void FillLibraryRow(SharedState &state, std::string_view libraryKey, Row &row) {
  FillFileColumns(state, libraryKey, GetLibraryFilename(state, libraryKey), row);
}

std::string GetLibrariesInCourse(SharedState &state, std::string_view courseKey) {
  std::string libraries;
  const bool read = Guarded(state, "basCourseProperties.GetLibrariesInCourse(): ", [&] {
    CourseFile course(state);
    course.FileName = GetCourseFilename(state, courseKey);
    if (!course.ReadFile())
      return;
    for (const std::string &guid : course.LibraryGUIDS()) {
      if (!libraries.empty())
        libraries += ',';
      libraries += guid;
    }
  });
  return read ? libraries : std::string();
}

Row *FindListRow(std::string_view key, std::string_view text, ListView &list, bool addIfMissing) {
  Row *row = list.FindItem(key);
  if (row != nullptr || !addIfMissing)
    return row;
  return &list.Add(key, text);
}

void CopyRowToList(const Row &row, ListView &list, bool addIfMissing) {
  Row *target = FindListRow(row.Tag(), row.Text(), list, addIfMissing);
  if (target == nullptr)
    return;
  target->SetTag(row.Tag());
  for (int index = column::Filename; index <= column::Text; ++index)
    target->SetSubItems(index, row.SubItems(index));
}

} // namespace turfdesk
