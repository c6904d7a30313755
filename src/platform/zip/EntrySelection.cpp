// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/EntrySelection.h"

#include "platform/CaseFold.h"
#include "platform/Wildcards.h"

#include <algorithm>

namespace turfdesk {

namespace {

/// Which entry is the file of this name; beyond the last where there is none.
std::size_t FindByName(const std::vector<ArchiveEntry> &entries, const std::vector<std::string> &foldedNames,
                       const std::string &name) {
  const std::string folded = FoldCase(name);
  std::size_t found = entries.size();
  for (std::size_t i = entries.size(); i-- > 0;) {
    if (!entries[i].isNameUsable || foldedNames[i] != folded)
      continue;
    if (entries[i].name == name)
      return i;
    if (found == entries.size())
      found = i;
  }
  return found;
}

} // namespace

std::vector<std::string> SplitList(std::string_view list) {
  std::vector<std::string> items;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find('\r'), list.size());
    if (end > 0)
      items.emplace_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return items;
}

std::string_view BareFileName(std::string_view path) { return path.substr(path.rfind('\\') + 1); }

EntrySelection::EntrySelection(std::string_view filesToProcess) {
  for (std::string &item : SplitList(filesToProcess)) {
    std::replace(item.begin(), item.end(), '/', '\\');
    if (item.find_first_of("*?") == std::string::npos)
      mNames.push_back(std::move(item));
    else
      // A file without a dot in its name also counts as "*.*".
      mPatterns.push_back(item == "*.*" ? "*" : FoldCase(item));
  }
}

bool EntrySelection::MatchesPattern(std::string_view foldedName) const {
  const std::string_view bareName = BareFileName(foldedName);
  return std::any_of(mPatterns.begin(), mPatterns.end(), [&](const std::string &pattern) {
    return MatchesWildcard(pattern, foldedName) || MatchesWildcard(pattern, bareName);
  });
}

std::vector<ArchiveEntry> EntrySelection::From(const std::vector<ArchiveEntry> &entries) const {
  std::vector<std::string> foldedNames;
  std::vector<bool> isSelected;
  for (const ArchiveEntry &entry : entries) {
    foldedNames.push_back(FoldCase(entry.name));
    isSelected.push_back(MatchesPattern(foldedNames.back()));
  }
  for (const std::string &name : mNames)
    if (const std::size_t index = FindByName(entries, foldedNames, name); index < entries.size())
      isSelected[index] = true;
  std::vector<ArchiveEntry> selected;
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (isSelected[i])
      selected.push_back(entries[i]);
  return selected;
}

} // namespace turfdesk
