// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/CaseFold.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

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

} // namespace

std::string FoldCase(std::string_view text) {
  if (IsAscii(text))
    return FoldAscii(text);
  utf8proc_uint8_t *mapped = nullptr;
  const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD);
  const utf8proc_ssize_t length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t *>(text.data()),
                                               static_cast<utf8proc_ssize_t>(text.size()), &mapped, options);
  const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(mapped, &std::free);
  if (length < 0)
    return FoldAscii(text);
  return {reinterpret_cast<const char *>(mapped), static_cast<std::size_t>(length)};
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return left == right || FoldCase(left) == FoldCase(right);
}

} // namespace turfdesk
