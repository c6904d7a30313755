// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/EntrySelection.h"

#include "platform/CaseFold.h"
#include "platform/Wildcards.h"

#include <algorithm>

namespace turfdesk {

namespace {

bool IsPattern(std::string_view item) { return item.find_first_of("*?") != std::string_view::npos; }

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
  for (const std::string &item : SplitList(filesToProcess)) {
    std::string pattern = FoldCase(item);
    std::replace(pattern.begin(), pattern.end(), '/', '\\');
    // A file without a dot in its name also counts as "*.*".
    mPatterns.push_back(pattern == "*.*" ? "*" : pattern);
  }
}

bool EntrySelection::Selects(std::string_view name) const {
  const std::string folded = FoldCase(name);
  const std::string_view bareName = BareFileName(folded);
  return std::any_of(mPatterns.begin(), mPatterns.end(), [&](const std::string &pattern) {
    return MatchesWildcard(pattern, folded) || (IsPattern(pattern) && MatchesWildcard(pattern, bareName));
  });
}

} // namespace turfdesk
