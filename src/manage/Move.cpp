// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/Move.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "catalogue/LoadLists.h"
#include "platform/CaseFold.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "support/ErrorHandling.h"
#include "support/OrTellWhy.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/WorkInProgress.h"
#include "support/basVorinFile.h"
#include "support/basVorinRegistry.h"
#include "support/basVorinString.h"

#include <algorithm>
#include <array>
#include <memory>
#include <set>

namespace turfdesk {

namespace {

/// Courses that the game looks for in its own folder.
constexpr std::array<std::string_view, 6> FixedCourses = {
    "{BABD4DCA-5214-4B66-9296-3D8F8EEC0000}", "{15EAD347-1F4F-4554-A2F3-239E80BA11A3}",
    "{BDE5E5F4-C342-48BF-871F-16B95770000B}", "{BDE5E5F4-C342-48BF-871F-16B957711111}",
    "{BDE5E5F4-C342-48BF-871F-16B95775658B}", "{E6094587-8112-4EA0-8179-95FFEFAD9999}"};

/// A path that a row and the catalogue both hold.
struct PathField {
  int column;
  std::string_view valueName;
};

constexpr PathField FilenameField = {column::Filename, "Filename"};
constexpr std::array CourseFields = {FilenameField, PathField{column::Picture, "Picture"},
                                     PathField{column::Music, "Music"}, PathField{column::Video, "AVI"},
                                     PathField{column::Text, "Text"}};

/// What the files of one move share.
struct Journey {
  std::string destination;
  Label &fileLabel;
  Label &routeLabel;
  /// The new places of the files that have been moved, without regard to case.
  std::set<std::string> placed;
};

/// Moves files that share an entry and its row.
class FileMover {
public:
  FileMover(SharedState &state, std::string entryKey, Row &row, Journey &journey)
      : mState(state), mEntryKey(std::move(entryKey)), mRow(row), mJourney(journey) {}

  /// path is a copy of what the row holds.
  bool Move(const std::string &path, const PathField &field) {
    const std::string folder = GetPathPart(mState, path);
    const std::string name = GetFilePart(mState, path);
    const std::string newPath = AddBackslash(mJourney.destination) + name;
    mJourney.routeLabel.SetCaption(RouteText(folder, mJourney.destination));
    mJourney.fileLabel.SetCaption(name);
    mState.screen.DoEvents();
    BeginPart(mState, path);
    if (!MayReplace(path, newPath))
      return false;
    const Recording recording{[&] { return ReserveFor(path, field); }, [&] { return Record(field, newPath); }};
    const auto withdraw = [&] {
      const auto reservation = ReserveEntry(mState, KeyChange::Write, mEntryKey);
      return reservation && Record(field, path);
    };
    if (!MoveFile(mState, folder, name, mJourney.destination, name, recording, withdraw)) {
      if (!GetLastFileError(mState).empty())
        ShowError(mState, GetLastFileError(mState));
      return false;
    }
    mJourney.placed.insert(FoldCase(newPath));
    return true;
  }

private:
  /// A file that has just come from another folder is not replaced.
  bool MayReplace(const std::string &path, const std::string &newPath) {
    if (!mJourney.placed.contains(FoldCase(newPath)) || !FileExists(mState, newPath) || !FileExists(mState, path))
      return true;
    ShowError(mState, AsOneLine(path) + Newlines(2) + "Another file of this name has just been moved there.");
    return false;
  }

  /// The copy may have taken long, and the entry may be another process's work by now, or gone.
  std::unique_ptr<RegistryReservation> ReserveFor(const std::string &path, const PathField &field) {
    auto reservation = ReserveEntry(mState, KeyChange::Write, mEntryKey);
    if (reservation && GetRegistryValue(mState, LocalMachine, mEntryKey, field.valueName, "") != path) {
      reservation.reset();
      ShowError(mState, AsOneLine(path) + Newlines(2) +
                            "Another program has changed the entry of this file. It has not been moved.");
    }
    return reservation;
  }

  /// A refusal stands in the verdict; a tree that fails by throwing must not leave the file where nothing points at it.
  bool Record(const PathField &field, const std::string &newPath) {
    try {
      if (!SetRegistryValue(mState, LocalMachine, mEntryKey, field.valueName, newPath))
        return false;
    } catch (const std::exception &error) {
      mState.lastFileError = DescriptionOf(error);
      return false;
    }
    mRow.SetSubItems(field.column, newPath);
    return true;
  }

  SharedState &mState;
  std::string mEntryKey;
  Row &mRow;
  Journey &mJourney;
};

bool MoveFiles(SharedState &state, Row &row, Journey &journey) {
  FileMover mover(state, CourseEntryKey(row.Tag()), row, journey);
  return std::ranges::all_of(CourseFields, [&](const PathField &field) {
    const std::string &path = row.SubItems(field.column);
    return path.empty() || mover.Move(std::string(path), field);
  });
}

bool MoveLibraryFile(SharedState &state, Row &row, Journey &journey) {
  const std::string &path = row.SubItems(column::Filename);
  return path.empty() ||
         FileMover(state, LibraryEntryKey(row.Tag()), row, journey).Move(std::string(path), FilenameField);
}

bool MoveOrphan(SharedState &state, const std::string &libraryKey, Journey &journey) {
  Row *library = FindListRow(libraryKey, GetLibraryName(state, libraryKey), state.lstLibraries, false);
  return library != nullptr && MoveLibraryFile(state, *library, journey);
}

constexpr std::string_view LibrariesStay = "The course has been moved. Its libraries that were still to be moved stay.";

/// A library that fails does not keep the others from being asked about.
bool MoveOrphans(SharedState &state, const Row &course, Journey &journey) {
  bool moved = true;
  const bool finished = OfferOrphans(
      state, course.Tag(), course.SubItems(column::Libraries), LoadResString(StringId::WishToMove),
      [&] { return !StoppedByChangeOfUse(state, LibrariesStay); },
      [&](const std::string &libraryKey) { moved = MoveOrphan(state, libraryKey, journey) && moved; });
  return finished && moved;
}

/// Of all that may move, the libraries that are still to be asked about included.
double SumOfSizes(SharedState &state, const Row &item) {
  double sum = GetFileSize(state, item.SubItems(column::Filename));
  if (state.activeList != ActiveCourses)
    return sum;
  for (const PathField &field : CourseFields)
    if (field.column != column::Filename)
      sum += GetFileSize(state, item.SubItems(field.column));
  for (const std::string &libraryKey : ParseList(item.SubItems(column::Libraries)))
    if (IsOrphanOfCourse(state, libraryKey, item.Tag()))
      sum += GetFileSize(state, GetLibraryFilename(state, libraryKey));
  return sum;
}

bool MoveItem(SharedState &state, const MoveRequest &request, StatusWindow &window) {
  if (request.item == nullptr) {
    ShowError(state, LoadResString(StringId::NothingSelected));
    return false;
  }
  double totalBytes = 0;
  PassOver([&] { totalBytes = SumOfSizes(state, *request.item); });
  WorkInProgress work(state, window, totalBytes);
  if (StoppedByChange(state, "Nothing has been moved."))
    return false;
  const auto move = state.activeList == ActiveCourses ? &MoveCourse : &MoveLibrary;
  bool moved = false;
  PassOver([&] { moved = move(state, *request.item, request.destination, window.FileLabel(), window.RouteLabel()); });
  if (moved)
    work.Finish();
  return moved;
}

} // namespace

std::string MoveCaption(const SharedState &state, const Row &item) {
  const StringId kind = state.activeList == ActiveCourses ? StringId::Course : StringId::Library;
  return LoadResString(StringId::Move) + " " + AddQuotes(item.Text()) + " " + LoadResString(kind);
}

bool RunMove(SharedState &state, const MoveRequest &request, StatusWindow &window) {
  state.screen.DoEvents();
  const bool moved = MoveItem(state, request, window);
  window.FileLabel().SetCaption("");
  window.ShowCloseButton();
  window.RouteLabel().SetCaption(moved ? LoadResString(StringId::Moved) + " " + AddQuotes(request.item->Text())
                                       : LoadResString(StringId::MoveFailed));
  return moved;
}

bool MoveCourse(SharedState &state, Row &row, std::string_view destination, Label &fileLabel, Label &routeLabel) {
  if (std::ranges::find(FixedCourses, row.Tag()) != FixedCourses.end()) {
    ShowError(state, "This file cannot be moved from current location.");
    return false;
  }
  Journey journey{std::string(destination), fileLabel, routeLabel, {}};
  return MoveFiles(state, row, journey) && MoveOrphans(state, row, journey);
}

bool MoveLibrary(SharedState &state, Row &row, std::string_view destination, Label &fileLabel, Label &routeLabel) {
  Journey journey{std::string(destination), fileLabel, routeLabel, {}};
  return MoveLibraryFile(state, row, journey);
}

} // namespace turfdesk
