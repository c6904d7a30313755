// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Wildcards.h"

namespace turfdesk {

namespace {

std::size_t CharacterLength(std::string_view text, std::size_t start) {
  std::size_t end = start + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
    ++end;
  return end - start;
}

} // namespace

// After a mismatch only the last * takes one character more: earlier ones need not.
bool MatchesWildcard(std::string_view pattern, std::string_view text) {
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

} // namespace turfdesk
