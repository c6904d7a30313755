// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/CourseMedia.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/basVorinRegistry.h"
#include "support/basVorinString.h"

namespace turfdesk {

namespace {

bool SavePath(SharedState &state, Row &course, const CourseMedia &kind, const std::string &path) {
  if (SetRegistryValue(state, LocalMachine, CourseEntryKey(course.Tag()), kind.valueName, path)) {
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
    for (std::size_t i = 0; i < paths.size(); ++i)
      saved = SavePath(state, course, CourseMediaKinds[i], paths[i]) && saved;
    CopyRowToList(course, state.lstCourses, false);
  });
  return finished && saved;
}

} // namespace turfdesk
