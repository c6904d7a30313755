// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/NamePatterns.h"

#include "platform/CaseFold.h"
#include "platform/NextName.h"
#include "platform/Wildcards.h"

#include <algorithm>

namespace turfdesk {

namespace {

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

NamePatterns::NamePatterns(std::string_view alternatives) {
  while (!alternatives.empty()) {
    const std::string_view pattern = WithoutBlanks(NextName(alternatives, [](char c) { return c == ';'; }));
    if (!pattern.empty())
      mFolded.push_back(pattern == "*.*" ? "*" : FoldCase(pattern));
  }
}

bool NamePatterns::Match(std::string_view name) const {
  const std::string folded = FoldCase(name);
  return std::any_of(mFolded.begin(), mFolded.end(),
                     [&folded](const std::string &pattern) { return MatchesWildcard(pattern, folded); });
}

} // namespace turfdesk
