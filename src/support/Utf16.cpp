// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/Utf16.h"

#include <utf8proc.h>

#include <cstdint>

namespace turfdesk {

namespace {

constexpr utf8proc_int32_t FirstSurrogate = 0xD800;
constexpr utf8proc_int32_t FirstLowSurrogate = 0xDC00;
constexpr utf8proc_int32_t FirstBehindSurrogates = 0xE000;
constexpr utf8proc_int32_t FirstOfPair = 0x10000;
constexpr int BitsOfHalf = 10;

bool IsHigh(utf8proc_int32_t unit) { return unit >= FirstSurrogate && unit < FirstLowSurrogate; }
bool IsLow(utf8proc_int32_t unit) { return unit >= FirstLowSurrogate && unit < FirstBehindSurrogates; }

/// The 16-bit unit at a place in bytes; 0 behind the end.
utf8proc_int32_t UnitAt(std::string_view bytes, std::size_t place) {
  if (place + 1 >= bytes.size())
    return 0;
  return static_cast<unsigned char>(bytes[place]) | (static_cast<unsigned char>(bytes[place + 1]) << 8);
}

void AppendUnit(std::string &bytes, utf8proc_int32_t unit) {
  bytes += static_cast<char>(unit & 0xFF);
  bytes += static_cast<char>(unit >> 8);
}

void AppendUtf16(std::string &bytes, utf8proc_int32_t codePoint) {
  if (codePoint < FirstOfPair) {
    AppendUnit(bytes, codePoint);
    return;
  }
  const utf8proc_int32_t rest = codePoint - FirstOfPair;
  AppendUnit(bytes, FirstSurrogate + (rest >> BitsOfHalf));
  AppendUnit(bytes, FirstLowSurrogate + (rest & ((1 << BitsOfHalf) - 1)));
}

/// Calls a routine with each code point. False at the first that is none.
template <typename Take> bool ForEachCodePoint(std::string_view text, Take take) {
  while (!text.empty()) {
    utf8proc_int32_t codePoint = 0;
    const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(text.data()),
                                                     static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    if (length <= 0)
      return false;
    take(codePoint);
    text.remove_prefix(static_cast<std::size_t>(length));
  }
  return true;
}

} // namespace

std::optional<std::string> Utf8FromUtf16(std::string_view bytes) {
  if (bytes.size() % 2 != 0)
    return std::nullopt;
  std::string text;
  text.reserve(bytes.size() / 2);
  for (std::size_t place = 0; place < bytes.size(); place += 2) {
    utf8proc_int32_t codePoint = UnitAt(bytes, place);
    if (IsHigh(codePoint)) {
      place += 2;
      const utf8proc_int32_t low = UnitAt(bytes, place);
      if (!IsLow(low))
        return std::nullopt;
      codePoint = FirstOfPair + ((codePoint - FirstSurrogate) << BitsOfHalf) + (low - FirstLowSurrogate);
    } else if (IsLow(codePoint)) {
      return std::nullopt;
    }
    utf8proc_uint8_t encoded[4];
    const utf8proc_ssize_t length = utf8proc_encode_char(codePoint, encoded);
    text.append(reinterpret_cast<const char *>(encoded), static_cast<std::size_t>(length));
  }
  return text;
}

std::optional<std::string> Utf16FromUtf8(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() * 2);
  if (!ForEachCodePoint(text, [&bytes](utf8proc_int32_t codePoint) { AppendUtf16(bytes, codePoint); }))
    return std::nullopt;
  return bytes;
}

bool IsUtf8(std::string_view text) {
  return ForEachCodePoint(text, [](utf8proc_int32_t) {});
}

} // namespace turfdesk
