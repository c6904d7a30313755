// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <locale>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// A size in bytes as text: "0 KB" below 512, else whole kilobytes with the thousands separator of the user's locale,
/// "1,024 KB"; a comma where the locale has none.
std::string FormatKB(double sizeInBytes);
/// The same for a locale of choice.
std::string FormatKB(double sizeInBytes, const std::locale &locale);
/// The same for a text that holds a number; a text that holds none counts as 0.
std::string FormatKB(std::string_view sizeInBytes);

/// The empty value, an absent list, is an empty vector.
using StringList = std::vector<std::string>;

/// Splits source at any single character of delimiters outside double quotes. A run of blank delimiters counts as one;
/// of other delimiters each ends an item, so a final comma gives a final empty item. "" gives no list.
StringList ParseList(std::string_view source, std::string_view delimiters = ",", bool honourQuotes = true,
                     bool removeQuotes = true);

/// That many CR LF pairs; "" when count is below 1.
std::string Newlines(std::int16_t count);

/// The text with a double quote at either end, put there only where it is missing. "" gives two double quotes.
std::string AddQuotes(std::string_view text);

/// Takes one double quote off either end when the text has both; any other text is unchanged. A lone double quote
/// gives "".
std::string StripQuotes(std::string_view text);

/// The text without blanks at both ends.
std::string TrimBlanks(std::string_view text);

/// Is the value in the list, without regard to case?
bool ArrayContains(std::string_view value, std::span<const std::string> list);

/// Hexadecimal text of at least two characters.
std::string PadHexByte(std::string_view hex);

/// The path with a backslash at its end; "" stays "".
std::string AddBackslash(std::string_view path);

} // namespace turfdesk
