// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/CaseFold.h"

#include <utf8proc.h>

#include <algorithm>

namespace turfdesk {

namespace {

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string FoldAscii(std::string_view text) {
  std::string folded(text);
  for (char &c : folded)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c + ('a' - 'A'));
  return folded;
}

/// Windows pairs an upper case letter with a lower case one where each is the other's only counterpart: not the long s,
/// nor the final sigma, nor the Kelvin sign. It compares UTF-16 unit by unit, so no letter that takes two units has a
/// pair. U+1E9E it leaves alone where Unicode's data, since the letter came late, name the sharp s as its counterpart.
utf8proc_int32_t LowerOnWindows(utf8proc_int32_t letter) {
  constexpr utf8proc_int32_t firstOfTwoUnits = 0x10000;
  constexpr utf8proc_int32_t capitalSharpS = 0x1E9E;
  if (letter >= firstOfTwoUnits || letter == capitalSharpS)
    return letter;
  const utf8proc_int32_t lower = utf8proc_tolower(letter);
  return utf8proc_toupper(lower) == letter ? lower : letter;
}

} // namespace

std::string FoldCase(std::string_view text) {
  if (IsAscii(text))
    return FoldAscii(text);
  std::string folded;
  folded.reserve(text.size());
  while (!text.empty()) {
    utf8proc_int32_t letter = 0;
    const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(text.data()),
                                                     static_cast<utf8proc_ssize_t>(text.size()), &letter);
    if (length <= 0) {
      folded += text.front();
      text.remove_prefix(1);
      continue;
    }
    utf8proc_uint8_t encoded[4];
    const utf8proc_ssize_t count = utf8proc_encode_char(LowerOnWindows(letter), encoded);
    folded.append(reinterpret_cast<const char *>(encoded), static_cast<std::size_t>(count));
    text.remove_prefix(static_cast<std::size_t>(length));
  }
  return folded;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return left == right || FoldCase(left) == FoldCase(right);
}

} // namespace turfdesk
