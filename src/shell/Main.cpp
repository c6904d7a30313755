// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/Main.h"

#include "catalogue/BaseValues.h"
#include "platform/PathText.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "platform/WindowsNames.h"
#include "shell/basVorinInit.h"
#include "support/Prompts.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"

#include <algorithm>
#include <utility>

namespace turfdesk {

namespace {

/// What names a file for itself does not go on from a blank: no folder's name ends in one.
bool StandsAlone(SharedState &state, const std::string &argument) {
  return IsFullWindowsPath(argument) || argument.starts_with('/') || argument.starts_with('\\') ||
         PathOfFileAddress(argument) || FileExists(state, state.platform.ToWindowsPath(argument));
}

std::vector<std::string> SplitTail(SharedState &state, const std::vector<std::string> &arguments) {
  if (std::ranges::all_of(arguments, [&state](const auto &argument) { return StandsAlone(state, argument); }))
    return arguments;
  std::string tail;
  for (const std::string &argument : arguments)
    tail.append(tail.empty() ? "" : " ").append(argument);
  return {tail};
}

/// The files that the shell named, in the form that all paths have. Quotes go before blanks, so a tail with a blank
/// behind its closing quote keeps its quotes. Where none can be a file it is the folder that dialogs start in.
std::vector<std::string> TakeCommandFiles(SharedState &state, const std::vector<std::string> &arguments) {
  std::vector<std::string> files;
  bool wereNamed = false;
  for (const std::string &text : SplitTail(state, arguments)) {
    const std::string given = TrimBlanks(StripQuotes(text));
    if (given.empty())
      continue;
    wereNamed = true;
    std::string path = state.platform.ToWindowsPath(given);
    if (path.empty())
      ShowError(state, AsOneLine(given) + Newlines(2) + ErrorText(ErrorNumber::BadFileName));
    else
      files.push_back(DirExists(state, path) ? AddBackslash(path) : std::move(path));
  }
  if (wereNamed && files.empty())
    files.push_back(state.defaultDir + "\\");
  return files;
}

} // namespace

bool Main(SharedState &state, std::string_view commandTail) {
  return Main(state, std::vector<std::string>{std::string(commandTail)});
}

bool Main(SharedState &state, const std::vector<std::string> &arguments) {
  if (!Init(state))
    return false;
  state.registryValueKind = 2;
  state.activeList = ActiveCourses;
  state.noCompressCourses = {""};
  state.noCompressLibraries = {""};
  state.installDir = ReadBaseValue(state, InstallDirValue);
  state.defaultDir = state.installDir;
  if (const std::vector<std::string> files = TakeCommandFiles(state, arguments); !files.empty()) {
    state.commandFile = files.front();
    state.furtherCommandFiles.assign(files.begin() + 1, files.end());
  }
  state.courseDownload = ReadBaseValue(state, CourseDownloadValue);
  state.workingAvi = AddBackslash(state.platform.ProgramFolder()) + "working.avi";
  return true;
}

} // namespace turfdesk
