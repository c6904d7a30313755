// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/RegistryTextLines.h"
#include "support/RegistryTextReader.h"

#include <cstdint>
#include <string>
#include <vector>

namespace turfdesk {

/// Reads one value of a registry editor's file: its name and what is to become of it. A text in quotes goes on over
/// the ends of lines, and so do bytes behind a backslash at the end of a line; those lines are taken, too.
class RegistryValueReader {
public:
  /// first is the line that the value begins with.
  RegistryValueReader(RegistryTextLines &lines, RegistryTextLine first);

  /// Sets kind, valueName and data. Null when the value is well formed, else what is wrong with FaultyLine. Lines
  /// behind a text that is not closed have been put back then, since most likely only a quote is missing.
  const char *Read(RegistryStatement &statement);
  std::size_t FaultyLine() const { return mFaultyLine; }

private:
  const char *ReadNameAndData(RegistryStatement &statement);
  const char *ReadName(std::string &name);
  const char *ReadData(RegistryStatement &statement);
  const char *ReadQuoted(std::string &text);
  const char *ReadNumber(RegistryData &data);
  const char *ReadTypedBytes(RegistryStatement &statement);
  const char *ReadBytes(std::string &bytes);
  bool ReadHexadecimal(std::size_t mostDigits, std::uint32_t &number);

  bool GoOnBehindBackslash();
  void LeaveContinuedLines();
  bool TakeNextLine();
  bool Take(char character);
  bool TakeWord(std::string_view word);
  void SkipBlanks() { mPlace = mText.size() - WithoutLeadingBlanks(Rest()).size(); }
  std::string_view Rest() const { return std::string_view(mText).substr(mPlace); }

  RegistryTextLines &mLines;
  /// The lines taken so far; the last one is at work.
  std::vector<RegistryTextLine> mTaken;
  std::string mText;
  std::size_t mPlace = 0;
  std::size_t mFaultyLine = 0;
  /// Has a text in quotes gone over the end of a line?
  bool mIsLongText = false;
  bool mHasBytes = false;
};

} // namespace turfdesk
