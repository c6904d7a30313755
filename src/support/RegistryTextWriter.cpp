// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/RegistryTextWriter.h"

#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "support/RegistryTextLines.h"
#include "support/Utf16.h"
#include "support/basVorinString.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace turfdesk {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view Utf16Mark = "\xFF\xFE";
constexpr std::uint32_t PlainBytes = 3;

constexpr std::size_t LongestQuotedText = std::size_t{1} << 20;

// As the registry editor breaks lines.
constexpr std::size_t WidestLine = 77;

bool IsText(std::string_view text) { return IsUtf8(text) && text.find('\0') == std::string_view::npos; }

bool HasControlCharacters(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; });
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\')
      quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

std::string Formatted(const char *format, std::uint32_t number) {
  std::array<char, 16> text{};
  const int length = std::snprintf(text.data(), text.size(), format, number);
  return {text.data(), static_cast<std::size_t>(length)};
}

/// Appends bytes to a line, which goes on in further lines when it gets too wide.
std::string WithBytes(std::string line, std::uint32_t type, std::string_view bytes) {
  line += type == PlainBytes ? "hex:" : Formatted("hex(%x):", type);
  std::size_t lineStart = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    line += Formatted("%02x", static_cast<unsigned char>(bytes[i]));
    if (i + 1 == bytes.size())
      break;
    line += ',';
    if (line.size() - lineStart < WidestLine)
      continue;
    line += '\\';
    line += LineEnd;
    lineStart = line.size();
    line += "  ";
  }
  return line;
}

std::string Line(const RegistryValue &value) {
  const RegistryData &data = value.data;
  const std::string line = (value.name.empty() ? "@" : Quoted(value.name)) + '=';
  if (data.type == RegDword)
    return line + Formatted("dword:%08x", static_cast<std::uint32_t>(data.number));
  if (data.type != RegSz)
    return WithBytes(line, data.type, data.text);
  // In quotes a line break would depend on how the file is carried from one system to another, and a long text would
  // be a line too long to be read again; bytes go on in further lines.
  if (HasControlCharacters(data.text) || data.text.size() > LongestQuotedText)
    return WithBytes(line, RegSz, *Utf16FromUtf8(data.text + '\0'));
  return line + Quoted(data.text);
}

[[noreturn]] void Refuse(const std::string &key) {
  throw RuntimeError(ErrorNumber::BadFileName,
                     AsOneLine(key) + Newlines(2) +
                         "A name or a text of this settings key cannot be written to a file.");
}

} // namespace

void RegistryTextWriter::AddKey(const std::string &path) {
  if (!IsText(path) || path.find('\n') != std::string::npos)
    Refuse(path);
  mKey = path;
  mKeys.append(LineEnd).append("[").append(path).append("]").append(LineEnd);
}

void RegistryTextWriter::AddValue(const RegistryValue &value) {
  if (!IsText(value.name) || (value.data.type == RegSz && !IsText(value.data.text)))
    Refuse(mKey);
  mKeys.append(Line(value)).append(LineEnd);
}

std::string RegistryTextWriter::Text() const {
  return std::string(RegistryTextHeader).append(LineEnd).append(mKeys).append(LineEnd);
}

std::string RegistryTextBytes(std::string_view text) {
  // What the writer gives is always UTF-8.
  return std::string(Utf16Mark) + Utf16FromUtf8(text).value_or("");
}

} // namespace turfdesk
