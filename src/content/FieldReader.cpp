// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "content/FieldReader.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <string_view>

namespace turfdesk {

namespace {

// Windows-1252 between 0x80 and 0x9F; everywhere else a byte is its own code point. The five bytes that the code page
// leaves open stand for the control characters of the same number.
constexpr std::array<char16_t, 32> Windows1252Specials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendAsUtf8(std::string &text, std::uint8_t byte) {
  if (byte < 0x80) {
    text += static_cast<char>(byte);
    return;
  }
  const char16_t codePoint = byte < 0xA0 ? Windows1252Specials[byte - 0x80] : char16_t{byte};
  if (codePoint < 0x800) {
    text += static_cast<char>(0xC0 | codePoint >> 6);
  } else {
    text += static_cast<char>(0xE0 | codePoint >> 12);
    text += static_cast<char>(0x80 | (codePoint >> 6 & 0x3F));
  }
  text += static_cast<char>(0x80 | (codePoint & 0x3F));
}

} // namespace

std::string FieldReader::ReadString(std::int32_t length) {
  std::string text;
  if (length >= 1) {
    for (std::int32_t i = 0; i < length; ++i)
      if (const std::uint8_t byte = ReadByte(); byte != 0)
        AppendAsUtf8(text, byte);
    return text;
  }
  while (const std::uint8_t byte = ReadByte())
    AppendAsUtf8(text, byte);
  return text;
}

std::vector<std::string> FieldReader::ReadStringList() {
  std::vector<std::string> texts;
  for (int emptyAtStart = 0; emptyAtStart < 2;) {
    std::string text = ReadString(0);
    if (!text.empty()) {
      texts.push_back(std::move(text));
    } else if (!texts.empty()) {
      break;
    } else {
      ++emptyAtStart;
    }
  }
  return texts;
}

void FieldReader::SkipBytes(std::int32_t count) {
  for (auto left = static_cast<std::size_t>(std::max(count, 0)); left > 0;) {
    if (mPosition == mEnd)
      Refill();
    const std::size_t skipped = std::min(left, mEnd - mPosition);
    mPosition += skipped;
    left -= skipped;
  }
}

std::int16_t FieldReader::ReadWord() {
  const std::uint16_t low = ReadByte();
  const std::uint16_t high = ReadByte();
  return static_cast<std::int16_t>(high << 8 | low);
}

std::int16_t FieldReader::ReadDword() {
  const std::int16_t low = ReadWord();
  const std::int16_t high = ReadWord();
  if (high != 0)
    throw RuntimeError(ErrorNumber::Overflow);
  return low;
}

std::string FieldReader::ReadGUID() {
  std::array<std::uint8_t, 16> bytes;
  for (std::uint8_t &byte : bytes)
    byte = ReadByte();

  // -1 is a dash; the others are places in the field.
  static constexpr std::array<int, 20> order = {3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15};
  static constexpr std::string_view digits = "0123456789ABCDEF";
  std::array<char, 38> text;
  char *next = text.data();
  *next++ = '{';
  for (const int place : order) {
    if (place < 0) {
      *next++ = '-';
      continue;
    }
    const std::uint8_t byte = bytes[static_cast<std::size_t>(place)];
    *next++ = digits[byte >> 4];
    *next++ = digits[byte & 0xF];
  }
  *next = '}';
  return {text.data(), text.size()};
}

void FieldReader::Refill() {
  mEnd = mFile.Read(mBuffer);
  mPosition = 0;
  if (mEnd == 0)
    throw RuntimeError(ErrorNumber::InputPastEnd);
}

} // namespace turfdesk
