// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Arguments.h"

#include "platform/CaseFold.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "support/Prompts.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"

#include <vector>

namespace turfdesk {

namespace {

std::vector<Row *> RowsNamed(const ListView &list, const std::string &name) {
  std::vector<Row *> rows;
  for (std::size_t i = 0; i < list.Count(); ++i) {
    Row &row = list.At(i);
    if (EqualsIgnoringCase(row.Key(), name))
      return {&row};
    if (EqualsIgnoringCase(row.Text(), name))
      rows.push_back(&row);
  }
  return rows;
}

} // namespace

void ShowPathError(SharedState &state, const std::string &path, const std::string &words) {
  ShowError(state, AsOneLine(path) + Newlines(2) + words);
}

std::string TakePath(SharedState &state, const std::string &given) {
  std::string path = state.platform.ToWindowsPath(given);
  if (path.empty())
    ShowPathError(state, given, ErrorText(ErrorNumber::BadFileName));
  return path;
}

std::string TakeFolder(SharedState &state, const std::string &given) {
  std::string folder = TakePath(state, given);
  if (folder.empty() || DirExists(state, folder))
    return folder;
  ShowPathError(state, folder, ErrorText(ErrorNumber::PathNotFound));
  return "";
}

bool IsNamed(const ListView &list, const std::string &name) { return !RowsNamed(list, name).empty(); }

Row *FindByKeyOrName(CommandContext &context, const ListView &list, const std::string &name, const std::string &what) {
  const std::vector<Row *> rows = RowsNamed(list, name);
  if (rows.size() == 1)
    return rows.front();
  std::string text = rows.empty() ? "No " + what + " has this key or name." : "Several have this name. Give the key.";
  text += Newlines(2) + AsOneLine(name);
  for (const Row *row : rows)
    text += Newlines(1) + AsOneLine(row->Key());
  ShowError(context.state, text);
  return nullptr;
}

} // namespace turfdesk
