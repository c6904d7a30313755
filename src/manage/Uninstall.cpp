// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/Uninstall.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "catalogue/SideFiles.h"
#include "platform/ShownText.h"
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

/// The files that an uninstall had to leave, with the reasons.
class FilesLeft {
public:
  explicit FilesLeft(SharedState &state) : mState(state) {}

  void Delete(const std::string &path) { Note(path, DeleteIfThere(mState, path)); }

  void Note(const std::string &path, bool isGone) {
    if (!isGone)
      mWords += Newlines(1) + AsOneLine(path) + ": " + GetLastFileError(mState);
  }

  void Tell() const {
    if (!mWords.empty())
      ShowError(mState, "These files could not be deleted." + Newlines(1) + mWords);
  }

private:
  SharedState &mState;
  std::string mWords;
};

/// Files cannot be brought back: before the first goes, the key that goes last is made sure of, and that the answers
/// were given to what still is so. Null when the user has been told that this stops the work; untouched says what
/// stays.
std::unique_ptr<RegistryReservation> ReserveDeletion(SharedState &state, const std::string &entryKey,
                                                     std::string_view untouched) {
  auto reservation = ReserveEntry(state, KeyChange::Delete, entryKey);
  if (reservation && StoppedByChangeOfUse(state, untouched))
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
    if (!AskYesNo(state, LoadResString(StringId::LibraryUsedByCourses) + Newlines(2) + AsOneLine(course) + Newlines(2) +
                             LoadResString(StringId::WishToContinue)))
      return false;
  return true;
}

bool DeleteLibrary(SharedState &state, std::string_view libraryKey, bool askIfUsed, FilesLeft &left) {
  const std::string entryKey = LibraryEntryKey(libraryKey);
  if (askIfUsed && !UsersAccept(state, libraryKey))
    return false;
  const auto reservation =
      ReserveDeletion(state, entryKey, askIfUsed ? NothingUninstalled : "The library has not been uninstalled.");
  if (!reservation)
    return false;
  left.Delete(GetLibraryFilename(state, libraryKey));
  if (!DeleteEntry(state, entryKey))
    return false;
  left.Note(LibrarySwapFilePath(state, libraryKey), DeleteLibrarySwapFile(state, libraryKey));
  RemoveRow(state.lstLibraries, libraryKey);
  return true;
}

constexpr std::string_view LibraryWarning =
    "WARNING: Uninstalling a library that is used by a course will make that course unplayable, \r\n"
    "and attempting to play that course will cause Marrowfell 2002 to exit.";

/// What a row says, its name as messages say it. The row leaves its list before its name is shown for the last time.
struct Item {
  explicit Item(const Row &row)
      : name(AsOneLine(row.Text())), key(row.Tag()), libraries(row.SubItems(column::Libraries)) {}

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
  FilesLeft left(state);
  for (const std::string &path : media)
    left.Delete(path);
  left.Note(CourseStatsPath(state, courseKey), DeleteCourseStats(state, courseKey));

  std::string stillThere = "The course is still installed. Its media and statistics have been deleted.";
  const auto mayGoOn = [&] {
    // Not held across a question. A course that another process installs meanwhile may need the library.
    reservation.reset();
    return !StoppedByChangeOfUse(state, stillThere);
  };
  const auto uninstall = [&](const std::string &libraryKey) {
    const std::string name = GetLibraryName(state, libraryKey);
    if (DeleteLibrary(state, libraryKey, false, left))
      stillThere += Newlines(2) + AsOneLine(name) + Newlines(1) + "This library has been uninstalled.";
  };
  bool gone = OfferOrphans(state, courseKey, libraryList, LoadResString(StringId::WishToDelete), mayGoOn, uninstall);
  if (gone && !reservation)
    reservation = ReserveDeletion(state, entryKey, stillThere);
  gone = gone && reservation;
  if (gone) {
    left.Delete(courseFile);
    gone = DeleteEntry(state, entryKey);
  }
  reservation.reset();
  if (gone)
    RemoveRow(state.lstCourses, courseKey);
  left.Tell();
  return gone;
}

bool UninstallLibrary(SharedState &state, std::string_view libraryKey, bool askIfUsed) {
  FilesLeft left(state);
  const bool gone = DeleteLibrary(state, libraryKey, askIfUsed, left);
  left.Tell();
  return gone;
}

} // namespace turfdesk
