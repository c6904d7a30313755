// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/CourseMedia.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/LoadLists.h"
#include "platform/ShownText.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/basVorinRegistry.h"
#include "support/basVorinString.h"

#include <algorithm>

namespace turfdesk {

namespace {

/// The row is what the user saw. False when another process has changed the entry under it, or it has gone; the user
/// has been told.
bool IsAsShown(SharedState &state, const Row &course) {
  const std::string entryKey = CourseEntryKey(course.Tag());
  const char *words = "Another program has changed the entry of this course. Nothing has been saved.";
  if (!CourseKeyExists(state, course.Tag()))
    words = "This course is no longer installed. Nothing has been saved.";
  else if (!CatalogueChanged(state) || std::ranges::all_of(CourseMediaKinds, [&](const CourseMedia &kind) {
             return GetRegistryValue(state, LocalMachine, entryKey, kind.valueName, "") == course.SubItems(kind.column);
           }))
    return true;
  ShowError(state, AsOneLine(course.Text()) + Newlines(2) + words);
  return false;
}

/// Never makes the entry anew.
bool Write(SharedState &state, const std::string &entryKey, const CourseMedia &kind, const std::string &path) {
  const auto reservation = ReserveRegistryKey(state, KeyChange::Write, LocalMachine, entryKey);
  return reservation && SetRegistryValue(state, LocalMachine, entryKey, kind.valueName, path);
}

bool SavePath(SharedState &state, Row &course, const CourseMedia &kind, const std::string &path) {
  if (Write(state, CourseEntryKey(course.Tag()), kind, path)) {
    course.SetSubItems(kind.column, path);
    return true;
  }
  ShowError(state, LoadResString(kind.unableToSave) + Newlines(2) + GetRegistryError(state));
  return false;
}

} // namespace

bool SaveCourseMedia(SharedState &state, Row &course, const std::array<std::string, CourseMediaKinds.size()> &paths) {
  bool saved = true;
  const bool finished = Guarded(state, "frmCourseProperties.Save(): ", [&] {
    saved = IsAsShown(state, course);
    if (!saved)
      return;
    for (std::size_t i = 0; i < paths.size(); ++i)
      saved = SavePath(state, course, CourseMediaKinds[i], paths[i]) && saved;
    CopyRowToList(course, state.lstCourses, false);
  });
  return finished && saved;
}

} // namespace turfdesk
