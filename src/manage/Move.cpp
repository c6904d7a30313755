// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/Move.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/WorkInProgress.h"
#include "support/basVorinFile.h"
#include "support/basVorinRegistry.h"
#include "support/basVorinString.h"

#include <algorithm>
#include <array>

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

constexpr std::array CourseFields = {PathField{column::Filename, "Filename"}, PathField{column::Picture, "Picture"},
                                     PathField{column::Music, "Music"}, PathField{column::Video, "AVI"},
                                     PathField{column::Text, "Text"}};

/// One run over files that share entry, row, destination and labels.
class FileMover {
public:
  FileMover(SharedState &state, std::string entryKey, Row &row, std::string_view destination, Label &fileLabel,
            Label &routeLabel)
      : mState(state), mEntryKey(std::move(entryKey)), mRow(row), mDestination(destination), mFileLabel(fileLabel),
        mRouteLabel(routeLabel) {}

  bool Move(const std::string &path, const PathField &field) {
    const std::string folder = GetPathPart(mState, path);
    const std::string name = GetFilePart(mState, path);
    mRouteLabel.SetCaption(RouteText(folder, mDestination));
    mFileLabel.SetCaption(name);
    mState.screen.DoEvents();
    if (!MoveFile(mState, folder, name, mDestination, name)) {
      ShowError(mState, GetLastFileError(mState));
      return false;
    }
    const std::string newPath = AddBackslash(mDestination) + name;
    if (!Record(field, newPath, folder, name))
      return false;
    mRow.SetSubItems(field.column, newPath);
    return true;
  }

private:
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
    if (!MoveFile(mState, mDestination, name, folder, name))
      ShowError(mState, GetLastFileError(mState) + Newlines(2) + "The file is now here." + Newlines(2) + newPath);
  }

  SharedState &mState;
  std::string mEntryKey;
  Row &mRow;
  std::string mDestination;
  Label &mFileLabel;
  Label &mRouteLabel;
};

bool MoveFiles(SharedState &state, Row &row, std::string_view destination, Label &fileLabel, Label &routeLabel) {
  FileMover mover(state, CourseEntryKey(row.Tag()), row, destination, fileLabel, routeLabel);
  return std::ranges::all_of(CourseFields, [&](const PathField &field) {
    const std::string &path = row.SubItems(field.column);
    return path.empty() || mover.Move(path, field);
  });
}

bool MoveOrphan(SharedState &state, const std::string &libraryKey, std::string_view destination, Label &fileLabel,
                Label &routeLabel) {
  Row *library = FindListRow(libraryKey, GetLibraryName(state, libraryKey), state.lstLibraries, false);
  return library != nullptr && MoveLibrary(state, *library, destination, fileLabel, routeLabel);
}

/// A library that fails does not keep the others from being asked about.
bool OfferOrphans(SharedState &state, const Row &course, std::string_view destination, Label &fileLabel,
                  Label &routeLabel) {
  const std::string &courseKey = course.Tag();
  bool moved = true;
  for (const std::string &libraryKey : ParseList(course.SubItems(column::Libraries)))
    if (IsOrphanOfCourse(state, libraryKey, courseKey) &&
        AskAboutOrphan(state, libraryKey, LoadResString(StringId::WishToMove)))
      moved = MoveOrphan(state, libraryKey, destination, fileLabel, routeLabel) && moved;
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
  return MoveFiles(state, row, destination, fileLabel, routeLabel) &&
         OfferOrphans(state, row, destination, fileLabel, routeLabel);
}

bool MoveLibrary(SharedState &state, Row &row, std::string_view destination, Label &fileLabel, Label &routeLabel) {
  const std::string path = row.SubItems(column::Filename);
  FileMover mover(state, LibraryEntryKey(row.Tag()), row, destination, fileLabel, routeLabel);
  return path.empty() || mover.Move(path, {column::Filename, "Filename"});
}

} // namespace turfdesk
