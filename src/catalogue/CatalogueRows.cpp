// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/CatalogueRows.h"

#include "catalogue/Catalogue.h"
#include "content/CourseFile.h"
#include "support/ErrorHandling.h"
#include "support/basVorinFile.h"

#include <utility>

namespace turfdesk {

namespace {

constexpr const char *ReadingLabel = "basCourseProperties.GetLibrariesInCourse(): ";

std::string JoinKeys(const std::vector<std::string> &keys) {
  std::string joined;
  for (const std::string &key : keys)
    joined.append(joined.empty() ? 0 : 1, ',').append(key);
  return joined;
}

/// Reads the course at a path and gives its library list, "" where it cannot be read.
std::string ReadLibraryList(SharedState &state, CourseFile &course, std::string_view path) {
  std::string libraries;
  Guarded(state, ReadingLabel, [&] {
    course.FileName = path;
    if (course.ReadFile())
      libraries = JoinKeys(course.LibraryGUIDS());
  });
  return libraries;
}

void SetSize(Row &row, double bytes) {
  row.SetSubItems(column::Size, std::to_string(static_cast<unsigned long long>(bytes)));
}

} // namespace

void FillCourseRow(SharedState &state, std::string_view courseKey, Row &row) {
  const std::string filename = GetCourseFilename(state, courseKey);
  row.SetTag(courseKey);
  row.SetSubItems(column::Filename, filename);
  // The list of a large catalogue spends its time here: one opening of the file serves its size and its libraries.
  CourseFile course(state);
  std::string libraries = ReadLibraryList(state, course, filename);
  if (course.IsOutOfReach())
    state.coursesOutOfReach.insert_or_assign(std::string(courseKey), course.LastError());
  else
    state.coursesOutOfReach.erase(std::string(courseKey));
  SetSize(row, course.FileSize() > 0 ? static_cast<double>(course.FileSize()) : GetFileSize(state, filename));
  row.SetSubItems(column::Libraries, std::move(libraries));
  row.SetSubItems(column::Picture, GetCoursePicture(state, courseKey));
  row.SetSubItems(column::Music, GetCourseMusic(state, courseKey));
  row.SetSubItems(column::Video, GetCourseVideo(state, courseKey));
  row.SetSubItems(column::Text, GetCourseText(state, courseKey));
}

void FillLibraryRow(SharedState &state, std::string_view libraryKey, Row &row) {
  const std::string filename = GetLibraryFilename(state, libraryKey);
  row.SetTag(libraryKey);
  row.SetSubItems(column::Filename, filename);
  SetSize(row, GetFileSize(state, filename));
}

void FillOrRemove(SharedState &state, ListView &list, FillRow fillRow, std::string_view key, Row &row) {
  try {
    fillRow(state, key, row);
  } catch (...) {
    list.Remove(row);
    if (&list == &state.lstCourses)
      state.allCoursesListed = false;
    throw;
  }
}

std::string GetLibrariesInCourse(SharedState &state, std::string_view courseKey) {
  CourseFile course(state);
  std::string filename;
  Guarded(state, ReadingLabel, [&] { filename = GetCourseFilename(state, courseKey); });
  return ReadLibraryList(state, course, filename);
}

bool UpdateLibraryLists(SharedState &state) {
  bool changed = false;
  for (std::size_t i = 0; i < state.lstCourses.Count(); ++i) {
    Row &row = state.lstCourses.At(i);
    CourseFile course(state);
    course.FileName = row.SubItems(column::Filename);
    std::string libraries;
    PassOver([&] { libraries = course.ReadFile() ? JoinKeys(course.LibraryGUIDS()) : ""; });
    if (libraries.empty() || libraries == row.SubItems(column::Libraries))
      continue;
    row.SetSubItems(column::Libraries, std::move(libraries));
    changed = true;
  }
  return changed;
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
