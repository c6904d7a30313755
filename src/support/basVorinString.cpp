// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/basVorinString.h"

#include "platform/CaseFold.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <utf8proc.h>

namespace turfdesk {

namespace {

/// The locale that the user's environment asks for, the plain "C" one when the system does not have it. The program as
/// a whole stays in the plain one, so that numbers in files and answers read the same everywhere.
const std::locale &UsersLocale() {
  static const std::locale locale = [] {
    try {
      return std::locale("");
    } catch (const std::runtime_error &) {
      return std::locale::classic();
    }
  }();
  return locale;
}

/// In UTF-8. Many a locale's separator, such as the narrow no-break space, takes several bytes; only the wide facet
/// gives it as one character.
std::string ThousandsSeparator(const std::locale &locale) {
  const auto &format = std::use_facet<std::numpunct<wchar_t>>(locale);
  // A locale that knows no grouping (the plain "C" one) gets the usual comma.
  const auto codePoint = format.grouping().empty() ? ',' : static_cast<utf8proc_int32_t>(format.thousands_sep());
  std::array<utf8proc_uint8_t, 4> bytes{};
  const utf8proc_ssize_t count = utf8proc_encode_char(codePoint, bytes.data());
  return {bytes.begin(), bytes.begin() + count};
}

std::string WithThousandsSeparators(std::string digits, const std::string &separator) {
  for (std::size_t place = digits.size(); place > 3; place -= 3)
    digits.insert(place - 3, separator);
  return digits;
}

} // namespace

std::string FormatKB(double sizeInBytes) { return FormatKB(sizeInBytes, UsersLocale()); }

std::string FormatKB(double sizeInBytes, const std::locale &locale) {
  const double kilobytes = std::round(sizeInBytes / 1024.0);
  if (!(kilobytes >= 1.0))
    return "0 KB";
  const std::string digits = std::to_string(static_cast<unsigned long long>(kilobytes));
  return WithThousandsSeparators(digits, ThousandsSeparator(locale)) + " KB";
}

std::string FormatKB(std::string_view sizeInBytes) {
  return FormatKB(std::strtod(std::string(sizeInBytes).c_str(), nullptr));
}

StringList ParseList(std::string_view source, std::string_view delimiters, bool honourQuotes, bool removeQuotes) {
  if (source.empty())
    return {};
  const std::string trimmed = TrimBlanks(source);
  StringList items;
  const auto addItem = [&](std::size_t from, std::size_t to) {
    const std::string item = trimmed.substr(from, to - from);
    items.push_back(removeQuotes ? StripQuotes(item) : item);
  };

  bool quoted = false;
  std::size_t itemStart = 0;
  std::size_t afterLastDelimiter = std::string::npos;
  for (std::size_t place = 0; place < trimmed.size(); ++place) {
    const char ch = trimmed[place];
    if (ch == '"' && honourQuotes)
      quoted = !quoted;
    if (quoted || delimiters.find(ch) == std::string_view::npos)
      continue;
    if (ch != ' ' || place != afterLastDelimiter)
      addItem(itemStart, place);
    afterLastDelimiter = itemStart = place + 1;
  }
  addItem(itemStart, trimmed.size());
  return items;
}

std::string Newlines(std::int16_t count) {
  std::string text;
  for (std::int16_t i = 0; i < count; ++i)
    text += "\r\n";
  return text;
}

std::string AddQuotes(std::string_view text) {
  if (text.empty())
    return "\"\"";
  std::string quoted(text);
  if (quoted.front() != '"')
    quoted.insert(0, 1, '"');
  if (quoted.back() != '"')
    quoted += '"';
  return quoted;
}

std::string StripQuotes(std::string_view text) {
  if (text.empty() || text.front() != '"' || text.back() != '"')
    return std::string(text);
  text.remove_prefix(1);
  if (text.ends_with('"'))
    text.remove_suffix(1);
  return std::string(text);
}

std::string TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos)
    return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool ArrayContains(std::string_view value, std::span<const std::string> list) {
  return std::any_of(list.begin(), list.end(),
                     [value](const std::string &entry) { return EqualsIgnoringCase(value, entry); });
}

std::string PadHexByte(std::string_view hex) {
  if (hex.size() >= 2)
    return std::string(hex);
  return std::string(2 - hex.size(), '0') + std::string(hex);
}

std::string AddBackslash(std::string_view path) {
  std::string result(path);
  if (!result.empty() && result.back() != '\\')
    result += '\\';
  return result;
}

} // namespace turfdesk
