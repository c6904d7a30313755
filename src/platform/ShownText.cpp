// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/ShownText.h"

#include <utf8proc.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace turfdesk {

namespace {

/// Code points that Unicode sets aside for the inner use of programs; no text that is exchanged has them.
constexpr std::string_view MarkedLineFeed = "\uFDDA";
constexpr std::string_view MarkedReturn = "\uFDDD";

/// The code point itself for a piece of UTF-8, and minus the byte for one that is none.
struct Piece {
  utf8proc_int32_t codePoint;
  std::string_view bytes;
};

Piece FirstPiece(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80)
    return {first, text.substr(0, 1)};
  utf8proc_int32_t codePoint = 0;
  const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(text.data()),
                                                   static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
  return length > 0 ? Piece{codePoint, text.substr(0, static_cast<std::size_t>(length))}
                    : Piece{-static_cast<utf8proc_int32_t>(first), text.substr(0, 1)};
}

bool IsControl(utf8proc_int32_t codePoint) {
  return (codePoint >= 0 && codePoint < 0x20) || (codePoint >= 0x7F && codePoint < 0xA0);
}

bool IsSeparator(utf8proc_int32_t codePoint) { return codePoint == 0x2028 || codePoint == 0x2029; }

bool IsDirectionMark(utf8proc_int32_t codePoint) {
  return codePoint == 0x061C || codePoint == 0x200E || codePoint == 0x200F ||
         (codePoint >= 0x202A && codePoint <= 0x202E) || (codePoint >= 0x2066 && codePoint <= 0x2069);
}

bool IsPlain(const Piece &piece) {
  return piece.codePoint >= 0 && !IsControl(piece.codePoint) && !IsSeparator(piece.codePoint) &&
         !IsDirectionMark(piece.codePoint);
}

std::string Escape(utf8proc_int32_t codePoint) {
  std::array<char, 16> text{};
  const int value = std::abs(codePoint);
  std::snprintf(text.data(), text.size(), value < 0x100 ? "\\x%02X" : "\\u%04X", static_cast<unsigned>(value));
  return text.data();
}

std::string Symbol(utf8proc_int32_t codePoint) {
  // What the conversion of the whole text would make of such a byte.
  constexpr std::string_view replacement = "\uFFFD";
  constexpr utf8proc_int32_t pictures = 0x2400;
  constexpr utf8proc_int32_t pictureOfDelete = 0x2421;
  if (IsDirectionMark(codePoint))
    return "\u21C4";
  if (IsSeparator(codePoint))
    return "\u2424";
  // The upper control characters have no pictures.
  if (codePoint < 0 || codePoint >= 0x80)
    return std::string(replacement);
  utf8proc_uint8_t encoded[4];
  const utf8proc_ssize_t length =
      utf8proc_encode_char(codePoint == 0x7F ? pictureOfDelete : pictures + codePoint, encoded);
  return {reinterpret_cast<const char *>(encoded), static_cast<std::size_t>(length)};
}

/// Replaces what is not plain, but for the line breaks of the message itself.
std::string Replaced(std::string_view message, std::string (*replacementOf)(utf8proc_int32_t)) {
  std::string text;
  text.reserve(message.size());
  while (!message.empty()) {
    if (message.starts_with("\r\n"))
      message.remove_prefix(1);
    const Piece piece = FirstPiece(message);
    if (piece.bytes == MarkedLineFeed)
      text += replacementOf('\n');
    else if (piece.bytes == MarkedReturn)
      text += replacementOf('\r');
    else if (IsPlain(piece) || piece.codePoint == '\n')
      text += piece.bytes;
    else
      text += replacementOf(piece.codePoint);
    message.remove_prefix(piece.bytes.size());
  }
  return text;
}

void ReplaceAll(std::string &text, std::string_view from, std::string_view to) {
  for (std::size_t place = 0; (place = text.find(from, place)) != std::string::npos; place += to.size())
    text.replace(place, from.size(), to);
}

} // namespace

std::string AsOneLine(std::string_view text) {
  std::string line(text);
  ReplaceAll(line, "\n", MarkedLineFeed);
  ReplaceAll(line, "\r", MarkedReturn);
  return line;
}

std::string WithoutMarks(std::string_view message) {
  std::string text(message);
  ReplaceAll(text, MarkedLineFeed, "\n");
  ReplaceAll(text, MarkedReturn, "\r");
  return text;
}

std::string WithEscapes(std::string_view message) { return Replaced(message, Escape); }

std::string WithSymbols(std::string_view message) { return Replaced(message, Symbol); }

} // namespace turfdesk
