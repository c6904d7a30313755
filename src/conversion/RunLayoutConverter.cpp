// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "conversion/RunLayoutConverter.h"

#include "catalogue/LoadLists.h"
#include "conversion/StartConverter.h"

#include <vector>

namespace turfdesk {

namespace {

void ShowConverterBox(SharedState &state, const char *text, BoxIcon icon) {
  state.boxes.Show({text, "Layout Converter", BoxButtons::Ok, icon});
}

/// A folder that has no short path is not handed over; the converter says no to that by itself.
std::vector<std::string> ConverterArguments(SharedState &state, const std::string &folder) {
  std::string shortPath = state.platform.Programs().GetShortPathName(folder);
  if (shortPath.empty())
    return {};
  return {std::move(shortPath)};
}

void WaitForConverter(SharedState &state, ProcessHandle converter, ConversionWindows &windows) {
  Processes &programs = state.platform.Programs();
  windows.ShowWait();
  windows.RefreshAll();
  state.screen.SetMousePointer(MousePointer::Hourglass);
  programs.WaitForSingleObject(
      converter, [](void *screen) { static_cast<Screen *>(screen)->Repaint(); }, &state.screen);
  programs.CloseHandle(converter);
  windows.HideWait();
  state.screen.SetMousePointer(MousePointer::Default);
}

void FollowConverter(SharedState &state, std::uint32_t processId, ConversionWindows &windows) {
  const ProcessHandle converter = state.platform.Programs().OpenProcess(processId);
  if (converter == 0)
    ShowConverterBox(state, "Converter initialization error.", BoxIcon::Stop);
  else
    WaitForConverter(state, converter, windows);
  windows.UnloadForm();
}

} // namespace

bool RunLayoutConverter(SharedState &state, const ConversionRequest &request, ConversionWindows &windows) {
  const std::size_t coursesBefore = state.lstCourses.Count();
  const std::vector<std::string> arguments = ConverterArguments(state, request.folder);
  const std::string converter = ConverterPath(state, "LayoutConverter.exe");
  if (request.fileCount < 1) {
    windows.ShowInvalidDirectory();
    return false;
  }
  const std::uint32_t processId = StartConverter(state, converter, arguments, WindowStyle::Hidden);
  if (processId == 0)
    return false;

  FollowConverter(state, processId, windows);
  LoadLists(state);
  windows.RefreshMain();
  const bool converted = state.lstCourses.Count() != coursesBefore;
  if (converted)
    ShowConverterBox(state, "The course was converted successfully.", BoxIcon::Information);
  else
    ShowConverterBox(state, "The course could not be converted.", BoxIcon::Stop);
  return converted;
}

} // namespace turfdesk
