// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/CaseFold.h"
#include "platform/windows/WideText.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <vector>

namespace turfdesk::test {

namespace {

int Compare(wchar_t left, wchar_t right) { return CompareStringOrdinal(&left, 1, &right, 1, TRUE); }

} // namespace

TEST(Letters, AreTheSameWhereWindowsTakesThemForTheSame) {
  struct Letter {
    wchar_t letter;
    std::string folded;
  };
  std::vector<Letter> letters;
  for (int unit = 1; unit < 0x10000; ++unit)
    if (unit < 0xD800 || unit > 0xDFFF)
      letters.push_back({static_cast<wchar_t>(unit), FoldCase(ToUtf8(std::wstring(1, static_cast<wchar_t>(unit))))});
  // Sorted so, all that Windows takes for the same stand side by side.
  std::sort(letters.begin(), letters.end(), [](const Letter &left, const Letter &right) {
    return Compare(left.letter, right.letter) == CSTR_LESS_THAN;
  });
  int pairs = 0;
  for (std::size_t i = 1; i < letters.size(); ++i) {
    const bool same = Compare(letters[i - 1].letter, letters[i].letter) == CSTR_EQUAL;
    EXPECT_EQ(letters[i - 1].folded == letters[i].folded, same)
        << std::hex << static_cast<int>(letters[i - 1].letter) << " and " << static_cast<int>(letters[i].letter);
    pairs += same ? 1 : 0;
  }
  EXPECT_GT(pairs, 900);
  std::sort(letters.begin(), letters.end(),
            [](const Letter &left, const Letter &right) { return left.folded < right.folded; });
  for (std::size_t i = 1; i < letters.size(); ++i) {
    const bool same = letters[i - 1].folded == letters[i].folded;
    EXPECT_TRUE(!same || Compare(letters[i - 1].letter, letters[i].letter) == CSTR_EQUAL) << letters[i].folded;
  }
}

} // namespace turfdesk::test
