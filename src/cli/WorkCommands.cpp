// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Arguments.h"
#include "cli/Commands.h"

#include "catalogue/CatalogueRows.h"
#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "install/RunInstall.h"
#include "packaging/RunCompress.h"
#include "platform/CaseFold.h"
#include "platform/RuntimeError.h"
#include "support/ErrorHandling.h"
#include "support/StringTable.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"

#include <algorithm>

namespace turfdesk {

namespace {

/// What the install dialog could not have offered is refused before anything is installed.
bool CanBeOffered(SharedState &state, const std::string &path) {
  const std::string extension = FoldCase(GetExtension(state, path));
  if (extension != "hlc" && extension != "hlb" && extension != "hlz") {
    ShowPathError(state, path, "This is not a course, a library or a compressed course package.");
    return false;
  }
  if (!FileExists(state, path)) {
    ShowPathError(state, path, ErrorText(ErrorNumber::FileNotFound));
    return false;
  }
  return true;
}

/// One request for each source folder, in the order in which the folders and, of each, the files come up.
bool GroupByFolder(SharedState &state, const InstallOptions &options, const std::string &destination,
                   std::vector<InstallRequest> &requests) {
  for (const std::string &given : options.files) {
    const std::string path = TakePath(state, given);
    if (path.empty() || !CanBeOffered(state, path))
      return false;
    const std::string folder = GetPathPart(state, path);
    auto request = std::find_if(requests.begin(), requests.end(), [&](const InstallRequest &candidate) {
      return IsSameFolder(state, candidate.sourceDir, folder);
    });
    if (request == requests.end())
      request = requests.insert(request, {folder, destination.empty() ? folder : destination, {}});
    request->files.push_back(GetFilePart(state, path));
  }
  return true;
}

bool LeaveOut(CommandContext &context, ListView &libraries, const std::vector<std::string> &names) {
  for (const std::string &name : names) {
    Row *row = FindByKeyOrName(context, libraries, name, "library of this course");
    if (row == nullptr)
      return false;
    row->SetChecked(false);
    LibraryCheckChanged(context.state, *row);
  }
  return true;
}

/// A course that lacks a library cannot be played by everybody, so the user is asked.
bool MayLackLibraries(SharedState &state, const ListView &libraries) {
  if (!HasUncheckedLibrary(libraries))
    return true;
  const MessageBox question{LoadResString(StringId::RequiredLibrariesUnchecked), UncheckedLibrariesTitle,
                            BoxButtons::YesNo, BoxIcon::Question};
  return state.boxes.Show(question) == BoxAnswer::Yes;
}

/// False when there is nothing that could be packed, or the user refuses.
bool PrepareRequest(CommandContext &context, const CompressOptions &options, CompressRequest &request) {
  SharedState &state = context.state;
  if (!ListHasItems(state, ActiveCourses))
    return false;
  Row *course = FindByKeyOrName(context, state.lstCourses, options.course, "course");
  if (course == nullptr || !CourseMayBeCompressed(state, *course))
    return false;
  ListView libraries;
  request = ProposeCompress(state, *course, libraries);
  if (!LeaveOut(context, libraries, options.without))
    return false;
  request.libraries = LibrariesOf(libraries);
  if (!options.output.empty() && (request.packageName = TakePath(state, options.output)).empty())
    return false;
  return MayLackLibraries(state, libraries);
}

} // namespace

ExitStatus InstallFiles(CommandContext &context, const InstallOptions &options) {
  SharedState &state = context.state;
  LoadLists(state);
  std::string destination;
  std::vector<InstallRequest> requests;
  if ((!options.destination.empty() && (destination = TakeFolder(state, options.destination)).empty()) ||
      !GroupByFolder(state, options, destination, requests))
    return ReportOperation(context, false, "");

  bool result = true;
  for (const InstallRequest &request : requests) {
    // Each run has a window of its own, whose labels begin empty.
    context.window.FileLabel().SetCaption("");
    context.window.RouteLabel().SetCaption("");
    result = RunInstall(state, request, context.window);
    if (!result)
      break;
  }
  return ReportOperation(context, result, context.window.RouteLabel().Caption());
}

ExitStatus CompressCourse(CommandContext &context, const CompressOptions &options) {
  SharedState &state = context.state;
  LoadLists(state);
  bool result = false;
  Guarded(state, "frmTurfManager.btnCourseCompress_Click(): ", [&] {
    CompressRequest request;
    result = PrepareRequest(context, options, request) && RunCompress(state, request, context.window);
  });
  return ReportOperation(context, result, context.window.RouteLabel().Caption());
}

} // namespace turfdesk
