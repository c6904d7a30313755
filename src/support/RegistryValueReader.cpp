// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/RegistryValueReader.h"

#include "platform/CaseFold.h"
#include "support/Utf16.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <span>
#include <utility>

namespace turfdesk {

namespace {

constexpr const char *NotClosed = "A text in quotes is not closed.";
constexpr const char *BadEscape = "A backslash in quotes does not stand ahead of a backslash or a quote.";
constexpr const char *NameTooLong = "The name of the value is too long.";
constexpr const char *NeitherKeyNorValue = "The line is neither a key nor a value nor a comment.";
constexpr const char *NoEquals = "There is no = behind the name of a value.";
constexpr const char *BadData = "What is behind the = is neither a text in quotes nor dword:, hex: or -.";
constexpr const char *BadNumber = "A number has one to eight hexadecimal digits.";
constexpr const char *BadBytes = "Bytes are pairs of hexadecimal digits with commas between them.";
constexpr const char *NoNextLine = "The file ends behind a line that is to go on.";
constexpr const char *TrailingRest = "Something stands behind the value.";

// The number of a type that the registry editor writes as bytes: a text with names of variables in it.
constexpr std::uint32_t ExpandableText = 2;

// Of a text of several lines, for which all of them are held in memory.
constexpr std::size_t LongestText = std::size_t{1} << 20;

// As long as a name can be in the registry: 16,383 characters, each up to three bytes of UTF-8.
constexpr std::size_t LongestValueName = std::size_t{3} * 16383;

constexpr std::size_t DigitsOfByte = 2;
constexpr std::size_t DigitsOfNumber = 8;
constexpr int Hexadecimal = 16;

/// A text as the registry holds it: with a NUL at its end, and sometimes with several.
std::optional<std::string> TextOf(std::string_view bytes) {
  std::optional<std::string> text = Utf8FromUtf16(bytes);
  if (!text)
    return std::nullopt;
  text->resize(text->find_last_not_of('\0') + 1);
  return text->find('\0') == std::string::npos ? text : std::nullopt;
}

/// Makes what can be made of bytes of a type. False when that is nothing.
bool DecodeBytes(std::uint32_t type, std::string_view bytes, RegistryData &data) {
  if (type == RegSz || type == ExpandableText) {
    std::optional<std::string> text = TextOf(bytes);
    data = {RegSz, 0, text.value_or("")};
    return text.has_value();
  }
  if (type != RegDword || bytes.size() != sizeof data.number)
    return false;
  std::uint32_t number = 0;
  for (std::size_t i = bytes.size(); i > 0; --i)
    number = (number << 8U) | static_cast<unsigned char>(bytes[i - 1]);
  data = {RegDword, static_cast<std::int32_t>(number), ""};
  return true;
}

} // namespace

RegistryValueReader::RegistryValueReader(RegistryTextLines &lines, RegistryTextLine first) : mLines(lines) {
  mText = first.text;
  mTaken.push_back(std::move(first));
}

const char *RegistryValueReader::Read(RegistryStatement &statement) {
  const char *fault = ReadNameAndData(statement);
  if (fault == nullptr)
    return nullptr;
  if (mIsLongText) {
    mFaultyLine = mTaken.front().number;
    mLines.PutBack(std::span(mTaken).subspan(1));
    return NotClosed;
  }
  mFaultyLine = mTaken.back().number;
  if (mHasBytes)
    LeaveContinuedLines();
  return fault;
}

const char *RegistryValueReader::ReadNameAndData(RegistryStatement &statement) {
  if (const char *fault = ReadName(statement.valueName))
    return fault;
  SkipBlanks();
  if (!Take('='))
    return NoEquals;
  SkipBlanks();
  if (const char *fault = ReadData(statement))
    return fault;
  // Behind a text of several lines a semicolon is more likely the rest of a line whose first quote was taken for the
  // end of the text.
  const bool isEnd =
      mIsLongText ? Rest().find_first_not_of(RegistryTextBlanks) == std::string_view::npos : IsBlankOrComment(Rest());
  return isEnd ? nullptr : TrailingRest;
}

const char *RegistryValueReader::ReadName(std::string &name) {
  SkipBlanks();
  if (Take('@'))
    return nullptr;
  if (!Take('"'))
    return NeitherKeyNorValue;
  const char *fault = ReadQuoted(name);
  return fault == nullptr && name.size() > LongestValueName ? NameTooLong : fault;
}

const char *RegistryValueReader::ReadData(RegistryStatement &statement) {
  statement.kind = RegistryStatement::Kind::SetValue;
  if (Take('"'))
    return ReadQuoted(statement.data.text);
  if (TakeWord("dword:"))
    return ReadNumber(statement.data);
  if (TakeWord("hex"))
    return ReadTypedBytes(statement);
  statement.kind = RegistryStatement::Kind::DeleteValue;
  return Take('-') ? nullptr : BadData;
}

/// Reads on behind the opening quote.
const char *RegistryValueReader::ReadQuoted(std::string &text) {
  for (;;) {
    const std::string_view rest = Rest();
    const std::size_t length = std::min(rest.find_first_of("\"\\"), rest.size());
    text += rest.substr(0, length);
    mPlace += length;
    if (mPlace == mText.size()) {
      text += mTaken.back().end;
      mIsLongText = true;
      if (text.size() > LongestText || !TakeNextLine())
        return NotClosed;
    } else if (Take('"')) {
      return nullptr;
    } else {
      ++mPlace;
      if (mPlace == mText.size() || (mText[mPlace] != '\\' && mText[mPlace] != '"'))
        return BadEscape;
      text += mText[mPlace++];
    }
  }
}

const char *RegistryValueReader::ReadNumber(RegistryData &data) {
  std::uint32_t number = 0;
  if (!ReadHexadecimal(DigitsOfNumber, number))
    return BadNumber;
  data = {RegDword, static_cast<std::int32_t>(number), ""};
  return nullptr;
}

/// Reads on behind the word hex, with or without the number of a type.
const char *RegistryValueReader::ReadTypedBytes(RegistryStatement &statement) {
  constexpr std::uint32_t plainBytes = 3;
  std::uint32_t type = plainBytes;
  const bool isTyped = Take('(');
  if (isTyped && (!ReadHexadecimal(DigitsOfNumber, type) || !Take(')')))
    return BadData;
  if (!Take(':'))
    return BadData;
  mHasBytes = true;
  std::string bytes;
  if (const char *fault = ReadBytes(bytes))
    return fault;
  if (!DecodeBytes(type, bytes, statement.data))
    statement.kind = RegistryStatement::Kind::SetOtherValue;
  return nullptr;
}

const char *RegistryValueReader::ReadBytes(std::string &bytes) {
  if (!GoOnBehindBackslash())
    return NoNextLine;
  if (IsBlankOrComment(Rest()))
    return nullptr;
  for (;;) {
    std::uint32_t byte = 0;
    if (!ReadHexadecimal(DigitsOfByte, byte))
      return BadBytes;
    bytes += static_cast<char>(byte);
    if (!GoOnBehindBackslash())
      return NoNextLine;
    if (IsBlankOrComment(Rest()))
      return nullptr;
    if (!Take(','))
      return BadBytes;
    if (!GoOnBehindBackslash())
      return NoNextLine;
  }
}

bool RegistryValueReader::ReadHexadecimal(std::size_t mostDigits, std::uint32_t &number) {
  const std::string_view rest = Rest();
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number, Hexadecimal);
  const auto digits = static_cast<std::size_t>(end - rest.data());
  mPlace += digits;
  return error == std::errc() && digits <= mostDigits;
}

/// Skips blanks, and where nothing but a backslash is left of the line goes on in the next. False when there is none.
bool RegistryValueReader::GoOnBehindBackslash() {
  SkipBlanks();
  while (Rest().starts_with('\\') && WithoutLeadingBlanks(Rest().substr(1)).empty()) {
    if (!TakeNextLine())
      return false;
    SkipBlanks();
  }
  return true;
}

/// What belongs to faulty bytes would only be reported once more, line by line.
void RegistryValueReader::LeaveContinuedLines() {
  const auto isContinued = [this] {
    const std::size_t last = mText.find_last_not_of(RegistryTextBlanks);
    return last != std::string::npos && mText[last] == '\\';
  };
  while (isContinued() && TakeNextLine()) {
  }
}

/// False at the end of the file, and ahead of a line that cannot be read and will be reported by itself.
bool RegistryValueReader::TakeNextLine() {
  std::optional<RegistryTextLine> line = mLines.Next();
  if (line && line->fault != nullptr) {
    mLines.PutBack(std::span(&*line, 1));
    return false;
  }
  if (!line)
    return false;
  mText = line->text;
  mPlace = 0;
  mTaken.push_back(std::move(*line));
  return true;
}

bool RegistryValueReader::Take(char character) {
  if (!Rest().starts_with(character))
    return false;
  ++mPlace;
  return true;
}

bool RegistryValueReader::TakeWord(std::string_view word) {
  if (!EqualsIgnoringCase(Rest().substr(0, word.size()), word))
    return false;
  mPlace += word.size();
  return true;
}

} // namespace turfdesk
