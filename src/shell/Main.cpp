// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/Main.h"

#include "catalogue/BaseValues.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "shell/basVorinInit.h"
#include "support/Prompts.h"
#include "support/basVorinString.h"

namespace turfdesk {

namespace {

/// The file that the shell named, in the form that all paths have. Quotes go before blanks, so a tail with a blank
/// behind its closing quote keeps its quotes.
std::string TakeCommandFile(SharedState &state, std::string_view commandTail) {
  const std::string given = TrimBlanks(StripQuotes(commandTail));
  if (given.empty())
    return {};
  std::string path = state.platform.ToWindowsPath(given);
  if (path.empty())
    ShowError(state, AsOneLine(given) + Newlines(2) + ErrorText(ErrorNumber::BadFileName));
  return path;
}

} // namespace

bool Main(SharedState &state, std::string_view commandTail) {
  if (!Init(state))
    return false;
  state.registryValueKind = 2;
  state.activeList = ActiveCourses;
  state.noCompressCourses = {""};
  state.noCompressLibraries = {""};
  state.commandFile = TakeCommandFile(state, commandTail);
  state.installDir = ReadBaseValue(state, InstallDirValue);
  state.defaultDir = state.installDir;
  state.courseDownload = ReadBaseValue(state, CourseDownloadValue);
  state.workingAvi = AddBackslash(state.platform.ProgramFolder()) + "working.avi";
  return true;
}

} // namespace turfdesk
