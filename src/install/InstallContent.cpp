// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/InstallContent.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "content/CourseFile.h"
#include "content/LibraryFile.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "support/OrTellWhy.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/WorkInProgress.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace turfdesk {

namespace {

/// Where courses and libraries differ; both are installed by the same steps.
struct ContentKind {
  bool (*keyExists)(SharedState &, std::string_view key);
  std::string (*entryKey)(std::string_view key);
  bool (*registerEntry)(SharedState &, std::string_view key, std::string_view name, std::string_view filename);
  FillRow fillRow;
  void (*showCopyFailure)(SharedState &);
  ListView SharedState::*list;
  /// The list as a value of ActiveList.
  std::int32_t which;
  StringId replaceQuestion;
  StringId otherDirectory;
};

void ShowFileError(SharedState &state) { ShowError(state, GetLastFileError(state)); }

void ShowLibraryFileError(SharedState &state) {
  std::string text = GetLastFileError(state);
  if (text == ErrorText(ErrorNumber::PathFileAccess))
    text += ". " + LoadResString(StringId::NotReadOnlyTryAgain);
  ShowError(state, text);
}

constexpr ContentKind CourseKind = {&CourseKeyExists,
                                    &CourseEntryKey,
                                    &RegisterCourse,
                                    &FillCourseRow,
                                    &ShowFileError,
                                    &SharedState::lstCourses,
                                    ActiveCourses,
                                    StringId::CourseExistsReplace,
                                    StringId::CourseDifferentDirectory};

constexpr ContentKind LibraryKind = {&LibraryKeyExists,
                                     &LibraryEntryKey,
                                     &RegisterLibrary,
                                     &FillLibraryRow,
                                     &ShowLibraryFileError,
                                     &SharedState::lstLibraries,
                                     ActiveLibraries,
                                     StringId::LibraryExistsReplace,
                                     StringId::LibraryDifferentDirectory};

struct Content {
  std::string guid;
  std::string name;
  /// The keys of the libraries that it requires.
  std::vector<std::string> libraries;
};

struct Route {
  std::string sourceDir;
  std::string fileName;
  std::string destDir;
  std::string target;
};

Route PlanRoute(SharedState &state, std::string_view source, std::string_view destDir) {
  Route route{GetPathPart(state, source), GetFilePart(state, source), std::string(destDir), std::string(source)};
  if (!destDir.empty())
    route.target = AddBackslash(destDir) + route.fileName;
  return route;
}

/// What stands in the way of a file is to be seen beside its name.
void ShowReading(SharedState &state, const Route &route, Label &fileLabel, Label &routeLabel) {
  fileLabel.SetCaption(route.fileName);
  routeLabel.SetCaption("");
  state.screen.Repaint();
}

/// What decides whether content may be installed.
struct Facts {
  bool installed;
  bool targetExists;
  std::ptrdiff_t librariesInstalled;

  bool operator==(const Facts &) const = default;
};

Facts Look(SharedState &state, const ContentKind &kind, const Content &content, const Route &route) {
  return {
      kind.keyExists(state, content.guid), !route.destDir.empty() && FileExists(state, route.target),
      std::ranges::count_if(content.libraries, [&](const std::string &key) { return LibraryKeyExists(state, key); })};
}

enum class Decision { Install, Decline, Refuse };

/// Weighs the catalogue, which knows the content by its identity, against the disk, which knows the file by its name.
Decision Decide(SharedState &state, const ContentKind &kind, const Facts &facts, const Route &route) {
  if (facts.installed && (route.destDir.empty() || facts.targetExists)) {
    const bool replace = AskYesNo(state, LoadResString(kind.replaceQuestion) + Newlines(2) + AsOneLine(route.target));
    return replace ? Decision::Install : Decision::Decline;
  }
  if (!facts.installed && facts.targetExists) {
    ShowError(state, LoadResString(kind.otherDirectory) + Newlines(2) + AsOneLine(route.target));
    return Decision::Refuse;
  }
  return Decision::Install;
}

/// The copy may have taken long, and a question, too: what was decided by must still be so.
std::unique_ptr<RegistryReservation> ReserveFor(SharedState &state, const ContentKind &kind, const Content &content,
                                                const Route &route, const Facts &facts) {
  auto reservation = ReserveEntry(state, KeyChange::Create, kind.entryKey(content.guid));
  if (reservation && Look(state, kind, content, route) != facts) {
    reservation.reset();
    ShowError(state, AsOneLine(route.target) + Newlines(2) +
                         "Another program has installed or uninstalled this, or a library that it requires, "
                         "meanwhile. It has been left as it is.");
  }
  return reservation;
}

bool CopyAndRegister(SharedState &state, const ContentKind &kind, const Content &content, const Route &route,
                     const Facts &facts, Label &fileLabel, Label &routeLabel) {
  routeLabel.SetCaption(RouteText(route.sourceDir, route.destDir));
  fileLabel.SetCaption(route.fileName);
  state.screen.DoEvents();
  // Only after the copy: one that failed must leave no entry for the new place.
  const Recording recording{[&] { return ReserveFor(state, kind, content, route, facts); },
                            [&] { return kind.registerEntry(state, content.guid, content.name, route.target); }};
  if (route.destDir.empty()) {
    const auto reservation = recording.reserve();
    return reservation && recording.write();
  }
  if (CopyFile(state, route.sourceDir, route.fileName, route.destDir, route.fileName, recording))
    return true;
  if (!GetLastFileError(state).empty())
    kind.showCopyFailure(state);
  return false;
}

bool InstallAs(SharedState &state, const ContentKind &kind, const Content &content, const Route &route,
               const Facts &facts, Row *&row, Label &fileLabel, Label &routeLabel) {
  switch (Decide(state, kind, facts, route)) {
  case Decision::Refuse:
    return false;
  case Decision::Decline:
    return true;
  case Decision::Install:
    break;
  }
  if (!CopyAndRegister(state, kind, content, route, facts, fileLabel, routeLabel))
    return false;
  Row *shown = FindListRow(content.guid, content.name, state.*kind.list, true);
  FillOrRemove(state, state.*kind.list, kind.fillRow, content.guid, *shown);
  row = shown;
  if (kind.which == ActiveCourses || state.installed.list != ActiveCourses)
    state.installed = {kind.which, content.guid};
  return true;
}

bool AcceptMissingLibraries(SharedState &state, const CourseFile &course) {
  const auto &guids = course.LibraryGUIDS();
  const auto &names = course.LibraryNames();
  for (std::size_t i = 0; i < guids.size(); ++i) {
    if (LibraryKeyExists(state, guids[i]))
      continue;
    if (i >= names.size())
      throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    if (!AskYesNo(state, LoadResString(StringId::LibrariesNotFound) + Newlines(2) + AsOneLine(names[i]) + Newlines(3) +
                             LoadResString(StringId::WishToContinue)))
      return false;
  }
  return true;
}

} // namespace

bool InstallCourse(SharedState &state, std::string_view source, std::string_view destDir, Row *&row, Label &fileLabel,
                   Label &routeLabel) {
  const Route route = PlanRoute(state, source, destDir);
  ShowReading(state, route, fileLabel, routeLabel);
  CourseFile course(state);
  course.FileName = source;
  if (!course.ReadFile()) {
    ShowError(state, course.LastError());
    return false;
  }
  const Content content{course.GUID(), course.Name(), course.LibraryGUIDS()};
  const Facts facts = Look(state, CourseKind, content, route);
  if (!AcceptMissingLibraries(state, course))
    return false;
  return InstallAs(state, CourseKind, content, route, facts, row, fileLabel, routeLabel);
}

bool InstallLibrary(SharedState &state, std::string_view source, std::string_view destDir, Row *&row, Label &fileLabel,
                    Label &routeLabel) {
  const Route route = PlanRoute(state, source, destDir);
  ShowReading(state, route, fileLabel, routeLabel);
  LibraryFile library(state);
  library.FileName = source;
  if (!library.ReadFile()) {
    ShowError(state, library.LastError());
    return false;
  }
  const Content content{library.GUID(), library.Name(), {}};
  const Facts facts = Look(state, LibraryKind, content, route);
  return InstallAs(state, LibraryKind, content, route, facts, row, fileLabel, routeLabel);
}

} // namespace turfdesk
