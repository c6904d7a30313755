// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/InstallMedia.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "support/OrTellWhy.h"
#include "support/Prompts.h"
#include "support/WorkInProgress.h"
#include "support/basVorinFile.h"
#include "support/basVorinRegistry.h"
#include "support/basVorinString.h"

namespace turfdesk {

namespace {

struct MediaPlace {
  const char *valueName;
  int column;
};

MediaPlace PlaceOf(MediaKind kind) {
  switch (kind) {
  case MediaKind::Picture:
    return {"Picture", column::Picture};
  case MediaKind::Music:
    return {"Music", column::Music};
  case MediaKind::Video:
    return {"AVI", column::Video};
  case MediaKind::Text:
    break;
  }
  return {"Text", column::Text};
}

} // namespace

bool InstallMedia(SharedState &state, std::string_view source, std::string_view destDir, Row &row, MediaKind kind,
                  Label &fileLabel, Label &routeLabel) {
  const std::string sourceDir = GetPathPart(state, source);
  const std::string fileName = GetFilePart(state, source);
  const std::string target = AddBackslash(destDir) + fileName;
  routeLabel.SetCaption(RouteText(sourceDir, destDir));
  fileLabel.SetCaption(fileName);
  state.screen.DoEvents();

  const MediaPlace place = PlaceOf(kind);
  const std::string entryKey = CourseEntryKey(row.Tag());
  // The course's entry is not made anew for its media: another process may have uninstalled it.
  const Recording recording{[&] { return ReserveEntry(state, KeyChange::Write, entryKey); },
                            [&] {
                              if (SetRegistryValue(state, LocalMachine, entryKey, place.valueName, target))
                                return true;
                              state.lastFileError = GetRegistryError(state);
                              return false;
                            }};
  if (!CopyFile(state, sourceDir, fileName, destDir, fileName, recording)) {
    if (!GetLastFileError(state).empty())
      ShowError(state, GetLastFileError(state));
    return false;
  }
  row.SetSubItems(place.column, target);
  return true;
}

} // namespace turfdesk
