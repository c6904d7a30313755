// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/WindowsNames.h"

#include "platform/CaseFold.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

namespace turfdesk {

namespace {

/// Which bytes no name has. A table, since every letter of every path that is opened goes through it.
constexpr auto Forbidden = [] {
  std::array<bool, 256> table{};
  for (unsigned byte = 0; byte < 0x20; ++byte)
    table[byte] = true;
  table[0x7F] = true;
  for (const char c : std::string_view(R"(<>:"/\|?*)"))
    table[static_cast<unsigned char>(c)] = true;
  return table;
}();

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    utf8proc_int32_t codepoint = 0;
    const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(text.data()),
                                                     static_cast<utf8proc_ssize_t>(text.size()), &codepoint);
    if (length <= 0)
      return false;
    text.remove_prefix(static_cast<std::size_t>(length));
  }
  return true;
}

/// Is the text the digit of COM1 or LPT1? Windows takes the superscript ones, too.
bool IsPortDigit(std::string_view text) {
  if (text.size() == 1)
    return text.front() >= '0' && text.front() <= '9';
  return text == "\u00B9" || text == "\u00B2" || text == "\u00B3";
}

/// CON, CON.txt and "CON .txt" are all the device.
bool IsDeviceName(std::string_view name) {
  std::string_view stem = name.substr(0, name.find('.'));
  while (stem.ends_with(' '))
    stem.remove_suffix(1);
  if (stem.size() < 3 || stem.size() > 7)
    return false;
  constexpr std::string_view devices[] = {"con", "prn", "aux", "nul", "conin$", "conout$"};
  const std::string folded = FoldCase(stem);
  if (std::find(std::begin(devices), std::end(devices), folded) != std::end(devices))
    return true;
  return (folded.starts_with("com") || folded.starts_with("lpt")) && IsPortDigit(std::string_view(folded).substr(3));
}

} // namespace

bool IsFullWindowsPath(std::string_view path) {
  if (path.size() < 2 || path[1] != ':')
    return false;
  const char letter = static_cast<char>(path[0] | 0x20);
  return letter >= 'a' && letter <= 'z' && (path.size() == 2 || IsSeparator(path[2]));
}

bool IsNetworkPath(std::string_view path) {
  return path.size() > 2 && IsSeparator(path[0]) && IsSeparator(path[1]) && !IsSeparator(path[2]);
}

bool IsWindowsName(std::string_view name) { return name.size() <= LongestName && IsWindowsNameOfAnyLength(name); }

bool IsWindowsNameOfAnyLength(std::string_view name) {
  if (name.empty() || name.ends_with(' ') || name.ends_with('.'))
    return false;
  bool ascii = true;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (Forbidden[byte])
      return false;
    ascii = ascii && byte < 0x80;
  }
  return (ascii || IsUtf8(name)) && !IsDeviceName(name);
}

} // namespace turfdesk
