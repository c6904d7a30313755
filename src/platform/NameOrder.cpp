// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/NameOrder.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>

namespace turfdesk {

namespace {

void Append(std::string &text, utf8proc_int32_t letter) {
  utf8proc_uint8_t encoded[4];
  const utf8proc_ssize_t count = utf8proc_encode_char(letter, encoded);
  text.append(reinterpret_cast<const char *>(encoded), static_cast<std::size_t>(count));
}

/// Letters that Unicode does not take apart into a letter and an accent, and people do.
std::string_view BaseOfUndivided(utf8proc_int32_t letter) {
  switch (letter) {
  case U'æ':
    return "ae";
  case U'đ':
    return "d";
  case U'ħ':
    return "h";
  case U'ı':
    return "i";
  case U'ł':
    return "l";
  case U'ø':
    return "o";
  case U'œ':
    return "oe";
  case U'ŧ':
    return "t";
  default:
    return "";
  }
}

/// An accent is set above, below or through a letter. Vowel signs, which stand for sounds of their own, are none.
bool IsAccent(utf8proc_int32_t letter) { return utf8proc_get_property(letter)->combining_class != 0; }

/// What a text is sorted by, first things first.
struct Parts {
  explicit Parts(std::string_view text) {
    while (!text.empty()) {
      if (static_cast<unsigned char>(text.front()) < 0x80) {
        TakeAscii(text.front());
        text.remove_prefix(1);
        continue;
      }
      utf8proc_int32_t letter = 0;
      const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(text.data()),
                                                       static_cast<utf8proc_ssize_t>(text.size()), &letter);
      if (length > 0) {
        Take(letter);
      } else {
        base += text.front();
        accented += text.front();
        cases += '0';
      }
      text.remove_prefix(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 1)));
    }
    // A text without accents comes before one with some, whatever its alphabet.
    if (accented == base)
      accented.clear();
    cases.erase(cases.find_last_not_of('0') + 1);
  }

  std::string base;
  std::string accented;
  /// '1' for a capital, '0' for any other letter.
  std::string cases;

private:
  /// Nearly every letter is one of these.
  void TakeAscii(char letter) {
    const bool isCapital = letter >= 'A' && letter <= 'Z';
    const char small = isCapital ? static_cast<char>(letter + ('a' - 'A')) : letter;
    base += small;
    accented += small;
    cases += isCapital ? '1' : '0';
  }

  void Take(utf8proc_int32_t letter) {
    cases += utf8proc_tolower(letter) == letter ? '0' : '1';
    constexpr auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD);
    std::array<utf8proc_int32_t, 32> folded{};
    int boundary = UTF8PROC_BOUNDCLASS_START;
    const utf8proc_ssize_t count = utf8proc_decompose_char(letter, folded.data(), folded.size(), options, &boundary);
    for (utf8proc_ssize_t i = 0; i < count; ++i)
      TakeFolded(folded[static_cast<std::size_t>(i)]);
  }

  void TakeFolded(utf8proc_int32_t letter) {
    Append(accented, letter);
    if (const std::string_view plain = BaseOfUndivided(letter); !plain.empty())
      base += plain;
    else if (!IsAccent(letter))
      Append(base, letter);
  }
};

} // namespace

std::string BaseLetters(std::string_view text) { return Parts(text).base; }

std::string NameOrder(std::string_view text) {
  Parts parts(text);
  return std::move(parts.base) + '\0' + parts.accented + '\0' + parts.cases;
}

} // namespace turfdesk
