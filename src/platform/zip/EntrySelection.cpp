// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/EntrySelection.h"

#include "platform/CaseFold.h"

#include <algorithm>

namespace turfdesk {

namespace {

std::size_t CharacterLength(std::string_view text, std::size_t start) {
  std::size_t end = start + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
    ++end;
  return end - start;
}

/// Holds * (any text) and ? (one character) against a text. After a mismatch only the last * takes one character more:
/// earlier ones need not, so that the time stays within the product of the lengths.
bool Matches(std::string_view pattern, std::string_view text) {
  std::size_t p = 0;
  std::size_t t = 0;
  std::size_t afterStar = std::string_view::npos;
  std::size_t starText = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      afterStar = ++p;
      starText = t;
    } else if (p < pattern.size() && pattern[p] == '?') {
      ++p;
      t += CharacterLength(text, t);
    } else if (p < pattern.size() && pattern[p] == text[t]) {
      ++p;
      ++t;
    } else if (afterStar != std::string_view::npos) {
      starText += CharacterLength(text, starText);
      t = starText;
      p = afterStar;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
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
    return Matches(pattern, folded) || Matches(pattern, bareName);
  });
}

} // namespace turfdesk
