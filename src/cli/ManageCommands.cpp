// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Arguments.h"
#include "cli/Commands.h"

#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "manage/ClearStatistics.h"
#include "manage/CourseMedia.h"
#include "manage/Move.h"
#include "manage/Uninstall.h"
#include "support/ErrorHandling.h"

#include <algorithm>

namespace turfdesk {

namespace {

/// Makes the row that a command is to act on the selected one of the active list, as a click on it would.
Row *Select(CommandContext &context, const RowOptions &options) {
  SharedState &state = context.state;
  LoadLists(state);
  const bool isLibrary =
      options.library || (!IsNamed(state.lstCourses, options.name) && IsNamed(state.lstLibraries, options.name));
  const std::int32_t which = isLibrary ? ActiveLibraries : ActiveCourses;
  if (!ListHasItems(state, which))
    return nullptr;
  ListView &list = isLibrary ? state.lstLibraries : state.lstCourses;
  Row *row = FindByKeyOrName(context, list, options.name, options.library ? "library" : "course or library");
  if (row == nullptr)
    return nullptr;
  ActivateList(state, which);
  list.Select(row);
  return row;
}

Row *SelectCourse(CommandContext &context, const std::string &name) {
  SharedState &state = context.state;
  LoadLists(state);
  Row *row = ListHasItems(state, ActiveCourses) ? FindByKeyOrName(context, state.lstCourses, name, "course") : nullptr;
  if (row != nullptr)
    state.lstCourses.Select(row);
  return row;
}

/// The paths that the properties window would hold after the user had typed these. False when one is no path.
bool TypePaths(SharedState &state, const Row &course, const MediaOptions &media,
               std::array<std::string, CourseMediaKinds.size()> &paths) {
  for (std::size_t i = 0; i < paths.size(); ++i) {
    paths[i] = course.SubItems(CourseMediaKinds[i].column);
    if (!media[i])
      continue;
    paths[i] = media[i]->empty() ? "" : TakePath(state, *media[i]);
    if (paths[i].empty() && !media[i]->empty())
      return false;
  }
  return true;
}

} // namespace

ExitStatus UninstallContent(CommandContext &context, const RowOptions &row) {
  return ReportOperation(context, Select(context, row) != nullptr && UninstallSelected(context.state), "");
}

ExitStatus MoveContent(CommandContext &context, const RowOptions &row, const std::string &destination) {
  bool moved = false;
  Guarded(context.state, "frmTurfManager.btnCourseMove_Click(): ", [&] {
    Row *item = Select(context, row);
    if (item == nullptr)
      return;
    const std::string folder = TakeFolder(context.state, destination);
    moved = !folder.empty() && RunMove(context.state, {item, folder}, context.window);
  });
  return ReportOperation(context, moved, context.window.RouteLabel().Caption());
}

ExitStatus ClearStatistics(CommandContext &context, const std::string &course) {
  const bool cleared = SelectCourse(context, course) != nullptr && ClearSelectedStatistics(context.state);
  return ReportOperation(context, cleared, "");
}

ExitStatus SetMedia(CommandContext &context, const std::string &course, const MediaOptions &media) {
  bool saved = false;
  Guarded(context.state, "frmTurfManager.btnCourseProperties_Click(): ", [&] {
    Row *row = SelectCourse(context, course);
    std::array<std::string, CourseMediaKinds.size()> paths;
    if (row == nullptr || !TypePaths(context.state, *row, media, paths))
      return;
    // As a window that is closed without a change.
    const bool changes = std::ranges::any_of(media, [](const auto &path) { return path.has_value(); });
    saved = !changes || SaveCourseMedia(context.state, *row, paths);
  });
  return ReportOperation(context, saved, "");
}

} // namespace turfdesk
