// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/Uninstall.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "catalogue/SideFiles.h"
#include "support/ErrorHandling.h"
#include "support/OrTellWhy.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/basVorinFile.h"
#include "support/basVorinRegistry.h"
#include "support/basVorinString.h"

#include <array>
#include <string>

namespace turfdesk {

namespace {

void DeleteIfThere(SharedState &state, const std::string &path) {
  if (FileExists(state, path))
    DeleteFile(state, path);
}

/// Files cannot be brought back: before the first goes, the key that goes last is made sure of, and that the answers
/// were given to what still is so. Null when the user has been told that this stops the work; untouched says what
/// stays.
std::unique_ptr<RegistryReservation> ReserveDeletion(SharedState &state, const std::string &entryKey,
                                                     std::string_view untouched) {
  auto reservation = ReserveEntry(state, KeyChange::Delete, entryKey);
  if (reservation && StoppedByChange(state, untouched))
    reservation.reset();
  return reservation;
}

bool DeleteEntry(SharedState &state, const std::string &entryKey) {
  return OrTellWhy(state, [&] { return DeleteRegistryKey(state, LocalMachine, entryKey); });
}

/// The row may have gone meanwhile: the boxes let window events run.
void RemoveRow(ListView &list, std::string_view key) {
  if (Row *row = list.FindKey(key))
    list.Remove(*row);
}

constexpr std::string_view NothingUninstalled = "Nothing has been uninstalled.";

bool UsersAccept(SharedState &state, std::string_view libraryKey) {
  if (!state.allCoursesListed) {
    ShowError(state, "Some courses could not be read, and may use this library. It is kept.");
    return false;
  }
  std::vector<std::string> courses;
  ListCoursesUsingLibrary(state.lstCourses, courses, libraryKey);
  for (const std::string &course : courses)
    if (!AskYesNo(state, LoadResString(StringId::LibraryUsedByCourses) + Newlines(2) + course + Newlines(2) +
                             LoadResString(StringId::WishToContinue)))
      return false;
  return true;
}

constexpr std::string_view LibraryWarning =
    "WARNING: Uninstalling a library that is used by a course will make that course unplayable, \r\n"
    "and attempting to play that course will cause Marrowfell 2002 to exit.";

/// What a row says. The row leaves its list before its name is shown for the last time.
struct Item {
  explicit Item(const Row &row) : name(row.Text()), key(row.Tag()), libraries(row.SubItems(column::Libraries)) {}

  std::string name;
  std::string key;
  std::string libraries;
};

bool UninstallSelectedCourse(SharedState &state, const Item &course) {
  if (!AskYesNo(state, LoadResString(StringId::SureToDeleteCourse) + Newlines(2) + course.name))
    return false;
  const bool gone = UninstallCourse(state, course.key, course.libraries);
  if (gone)
    ShowInfo(state, course.name + Newlines(2) + LoadResString(StringId::CourseUninstalled));
  else
    ShowError(state, LoadResString(StringId::UnableToUninstallCourse));
  return gone;
}

bool UninstallSelectedLibrary(SharedState &state, const Item &library) {
  if (!AskYesNo(state, LoadResString(StringId::SureToDeleteLibrary) + Newlines(2) + library.name + Newlines(2) +
                           std::string(LibraryWarning)))
    return false;
  const bool gone = UninstallLibrary(state, library.key, true);
  if (gone)
    ShowInfo(state, library.name + Newlines(2) + LoadResString(StringId::LibraryUninstalled));
  else
    ShowError(state, LoadResString(StringId::UnableToUninstallLibrary));
  return gone;
}

} // namespace

bool UninstallSelected(SharedState &state) {
  bool gone = false;
  Guarded(state, "frmTurfManager.btnCourseUninstall_Click(): ", [&] {
    if (const Row *row = SelectedRow(state, state.activeList))
      gone = state.activeList == ActiveCourses ? UninstallSelectedCourse(state, Item(*row))
                                               : UninstallSelectedLibrary(state, Item(*row));
  });
  return gone;
}

bool UninstallCourse(SharedState &state, std::string_view courseKey, std::string_view libraryList) {
  const std::string entryKey = CourseEntryKey(courseKey);
  auto reservation = ReserveDeletion(state, entryKey, NothingUninstalled);
  if (!reservation)
    return false;
  const std::array media = {GetCoursePicture(state, courseKey), GetCourseMusic(state, courseKey),
                            GetCourseVideo(state, courseKey), GetCourseText(state, courseKey)};
  const std::string courseFile = GetCourseFilename(state, courseKey);
  for (const std::string &path : media)
    DeleteIfThere(state, path);
  DeleteCourseStats(state, courseKey);

  std::string stillThere = "The course is still installed. Its media and statistics have been deleted.";
  for (const std::string &libraryKey : ParseList(libraryList)) {
    if (!IsOrphanOfCourse(state, libraryKey, courseKey))
      continue;
    reservation.reset();
    // A course that another process has installed may need it, before the question or while it stands.
    if (StoppedByChange(state, stillThere))
      return false;
    const std::string name = GetLibraryName(state, libraryKey);
    if (!AskAboutOrphan(state, libraryKey, LoadResString(StringId::WishToDelete)))
      continue;
    if (StoppedByChange(state, stillThere))
      return false;
    if (UninstallLibrary(state, libraryKey, false))
      stillThere += Newlines(2) + name + Newlines(1) + "This library has been uninstalled.";
  }
  if (!reservation)
    reservation = ReserveDeletion(state, entryKey, stillThere);
  if (!reservation)
    return false;
  DeleteIfThere(state, courseFile);
  if (!DeleteEntry(state, entryKey))
    return false;
  RemoveRow(state.lstCourses, courseKey);
  return true;
}

bool UninstallLibrary(SharedState &state, std::string_view libraryKey, bool askIfUsed) {
  const std::string entryKey = LibraryEntryKey(libraryKey);
  if (askIfUsed && !UsersAccept(state, libraryKey))
    return false;
  const auto reservation =
      ReserveDeletion(state, entryKey, askIfUsed ? NothingUninstalled : "The library has not been uninstalled.");
  if (!reservation)
    return false;
  const std::string libraryFile = GetLibraryFilename(state, libraryKey);
  DeleteIfThere(state, libraryFile);
  if (!DeleteEntry(state, entryKey))
    return false;
  DeleteLibrarySwapFile(state, libraryKey);
  RemoveRow(state.lstLibraries, libraryKey);
  return true;
}

} // namespace turfdesk
