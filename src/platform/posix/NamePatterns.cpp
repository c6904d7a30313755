// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/NamePatterns.h"

#include "platform/CaseFold.h"
#include "platform/posix/HostPaths.h"

#include <algorithm>

namespace turfdesk {

namespace {

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Where the character after the one at this place begins.
std::size_t NextCharacter(std::string_view utf8, std::size_t place) {
  do
    ++place;
  while (place < utf8.size() && (utf8[place] & 0xC0) == 0x80);
  return place;
}

/// On a mismatch the last * takes one character more; an earlier one never needs to.
bool Matches(std::string_view pattern, std::string_view name) {
  std::size_t inPattern = 0;
  std::size_t inName = 0;
  std::size_t afterStar = std::string_view::npos;
  std::size_t starEnd = 0;
  while (inName < name.size()) {
    if (inPattern < pattern.size() && pattern[inPattern] == '*') {
      afterStar = ++inPattern;
      starEnd = inName;
    } else if (inPattern < pattern.size() && pattern[inPattern] == '?') {
      ++inPattern;
      inName = NextCharacter(name, inName);
    } else if (inPattern < pattern.size() && pattern[inPattern] == name[inName]) {
      ++inPattern;
      ++inName;
    } else if (afterStar != std::string_view::npos) {
      inPattern = afterStar;
      starEnd = NextCharacter(name, starEnd);
      inName = starEnd;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', inPattern) == std::string_view::npos;
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
                     [&folded](const std::string &pattern) { return Matches(pattern, folded); });
}

} // namespace turfdesk
