// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Dependencies.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "platform/ShownText.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/basVorinString.h"

#include <utility>

namespace turfdesk {

namespace {

// Keys have one fixed form with braces, so a part of the list that equals a key is that whole key.
bool Lists(const Row &course, std::string_view libraryKey) {
  return course.SubItems(column::Libraries).find(libraryKey) != std::string::npos;
}

void TellCoursesOutOfReach(SharedState &state) {
  std::string words;
  for (const auto &[key, reason] : state.coursesOutOfReach)
    if (const Row *course = state.lstCourses.FindKey(key))
      words += Newlines(1) + AsOneLine(course->Text()) + ": " + reason;
  if (!words.empty())
    ShowInfo(state, "These courses could not be read, and may use the libraries that you are asked about." +
                        Newlines(1) + words);
}

bool AskAboutOrphan(SharedState &state, std::string_view libraryKey, std::string_view question) {
  return AskYesNo(state, LoadResString(StringId::CourseAloneUsesLibrary) + Newlines(2) +
                             AsOneLine(GetLibraryName(state, libraryKey)) + Newlines(2) + std::string(question));
}

} // namespace

bool LibraryUsedByOtherCourse(SharedState &state, std::string_view libraryKey, std::string_view courseKey) {
  for (std::size_t i = 0; i < state.lstCourses.Count(); ++i) {
    const Row &course = state.lstCourses.At(i);
    if (course.Tag() != courseKey && Lists(course, libraryKey))
      return true;
  }
  return false;
}

bool IsOrphanOfCourse(SharedState &state, std::string_view libraryKey, std::string_view courseKey) {
  const bool usedElsewhere = LibraryUsedByOtherCourse(state, libraryKey, courseKey);
  const bool catalogued = LibraryKeyExists(state, libraryKey);
  return !usedElsewhere && catalogued && state.allCoursesListed;
}

std::int32_t ListCoursesUsingLibrary(const ListView &courses, std::vector<std::string> &names,
                                     std::string_view libraryKey) {
  names.clear();
  for (std::size_t i = 0; i < courses.Count(); ++i)
    if (const Row &course = courses.At(i); Lists(course, libraryKey))
      names.push_back(course.Text());
  return static_cast<std::int32_t>(names.size());
}

std::int32_t ListLibrariesInCourse(SharedState &state, const Row &course, ListView &libraries) {
  libraries.Clear();
  const StringList keys = ParseList(course.SubItems(column::Libraries));
  for (const std::string &key : keys) {
    Row &row = libraries.Add(key, GetLibraryName(state, key));
    row.SetTag(key);
    row.SetSubItems(column::Filename, GetLibraryFilename(state, key));
  }
  return static_cast<std::int32_t>(keys.size());
}

bool OfferOrphans(SharedState &state, std::string_view courseKey, std::string_view libraryList,
                  std::string_view question, const std::function<bool()> &mayGoOn,
                  const std::function<void(const std::string &libraryKey)> &agreed) {
  bool isFirst = true;
  for (const std::string &libraryKey : ParseList(libraryList)) {
    if (!IsOrphanOfCourse(state, libraryKey, courseKey))
      continue;
    if (!mayGoOn())
      return false;
    if (std::exchange(isFirst, false))
      TellCoursesOutOfReach(state);
    if (!AskAboutOrphan(state, libraryKey, question))
      continue;
    if (!mayGoOn())
      return false;
    agreed(libraryKey);
  }
  return true;
}

} // namespace turfdesk
