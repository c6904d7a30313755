// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/Move.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "manage/OrTellWhy.h"
#include "platform/CaseFold.h"
#include "platform/ShownText.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/WorkInProgress.h"
#include "support/basVorinFile.h"
#include "support/basVorinRegistry.h"
#include "support/basVorinString.h"

#include <algorithm>
#include <array>
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

  bool Move(const std::string &path, const PathField &field) {
    const std::string folder = GetPathPart(mState, path);
    const std::string name = GetFilePart(mState, path);
    const std::string newPath = AddBackslash(mJourney.destination) + name;
    mJourney.routeLabel.SetCaption(RouteText(folder, mJourney.destination));
    mJourney.fileLabel.SetCaption(name);
    mState.screen.DoEvents();
    if (!MayReplace(path, newPath))
      return false;
    if (!MoveFile(mState, folder, name, mJourney.destination, name)) {
      ShowError(mState, GetLastFileError(mState));
      return false;
    }
    mJourney.placed.insert(FoldCase(newPath));
    if (!Record(field, newPath, folder, name))
      return false;
    mRow.SetSubItems(field.column, newPath);
    return true;
  }

private:
  /// A file of the past is replaced, for which there is no way back: the new place must be one that can be recorded. A
  /// file that has just come from another folder is not replaced.
  bool MayReplace(const std::string &path, const std::string &newPath) {
    if (!FileExists(mState, newPath) || !FileExists(mState, path))
      return true;
    if (mJourney.placed.contains(FoldCase(newPath))) {
      ShowError(mState, AsOneLine(path) + Newlines(2) + "Another file of this name has just been moved there.");
      return false;
    }
    return OrTellWhy(mState, [this] { return RegistryKeyMayBeDeleted(mState, LocalMachine, mEntryKey); });
  }

  /// A tree that fails by throwing must not leave the file where nothing points at it, either.
  bool Record(const PathField &field, const std::string &newPath, const std::string &folder, const std::string &name) {
    try {
      if (SetRegistryValue(mState, LocalMachine, mEntryKey, field.valueName, newPath))
        return true;
    } catch (const std::exception &error) {
      ShowError(mState, error.what());
    }
    PutBack(newPath, folder, name);
    return false;
  }

  void PutBack(const std::string &newPath, const std::string &folder, const std::string &name) {
    // A source that could not be deleted is where it was.
    if (FileExists(mState, AddBackslash(folder) + name))
      return;
    if (!MoveFile(mState, mJourney.destination, name, folder, name))
      ShowError(mState,
                GetLastFileError(mState) + Newlines(2) + "The file is now here." + Newlines(2) + AsOneLine(newPath));
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
    return path.empty() || mover.Move(path, field);
  });
}

bool MoveLibraryFile(SharedState &state, Row &row, Journey &journey) {
  const std::string &path = row.SubItems(column::Filename);
  return path.empty() || FileMover(state, LibraryEntryKey(row.Tag()), row, journey).Move(path, FilenameField);
}

bool MoveOrphan(SharedState &state, const std::string &libraryKey, Journey &journey) {
  Row *library = FindListRow(libraryKey, GetLibraryName(state, libraryKey), state.lstLibraries, false);
  return library != nullptr && MoveLibraryFile(state, *library, journey);
}

/// A library that fails does not keep the others from being asked about.
bool OfferOrphans(SharedState &state, const Row &course, Journey &journey) {
  const std::string &courseKey = course.Tag();
  bool moved = true;
  for (const std::string &libraryKey : ParseList(course.SubItems(column::Libraries)))
    if (IsOrphanOfCourse(state, libraryKey, courseKey) &&
        AskAboutOrphan(state, libraryKey, LoadResString(StringId::WishToMove)))
      moved = MoveOrphan(state, libraryKey, journey) && moved;
  return moved;
}

bool MoveItem(SharedState &state, const MoveRequest &request, StatusWindow &window) {
  if (request.item == nullptr) {
    ShowError(state, LoadResString(StringId::NothingSelected));
    return false;
  }
  const WorkInProgress work(state, window);
  const auto move = state.activeList == ActiveCourses ? &MoveCourse : &MoveLibrary;
  bool moved = false;
  PassOver([&] { moved = move(state, *request.item, request.destination, window.FileLabel(), window.RouteLabel()); });
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
  return MoveFiles(state, row, journey) && OfferOrphans(state, row, journey);
}

bool MoveLibrary(SharedState &state, Row &row, std::string_view destination, Label &fileLabel, Label &routeLabel) {
  Journey journey{std::string(destination), fileLabel, routeLabel, {}};
  return MoveLibraryFile(state, row, journey);
}

} // namespace turfdesk
