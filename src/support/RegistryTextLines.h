// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The first line of a registry editor's file.
inline constexpr std::string_view RegistryTextHeader = "Windows Registry Editor Version 5.00";

/// What counts as a blank between the parts of a line.
inline constexpr std::string_view RegistryTextBlanks = " \t";

constexpr std::string_view WithoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(RegistryTextBlanks), text.size()));
  return text;
}

/// Is there nothing that counts in this rest of a line?
constexpr bool IsBlankOrComment(std::string_view rest) {
  rest = WithoutLeadingBlanks(rest);
  return rest.empty() || rest.starts_with(';');
}

/// Fills a buffer with the next bytes and gives their number, which is less than asked for only at the end.
using ByteSource = std::function<std::size_t(std::span<std::uint8_t> buffer)>;

/// A line of a text file.
struct RegistryTextLine {
  /// 1-based.
  std::size_t number = 0;
  /// UTF-8, without its end.
  std::string text;
  /// What ends it: "\r\n", "\n", or "" at the end of the file.
  std::string_view end;
  /// Why the line could not be read, null when it could. text is empty then.
  const char *fault = nullptr;
};

/// The lines of a text in UTF-16LE or UTF-8, with or without a byte order mark. However long the text is, no more of it
/// than a line is held at a time.
class RegistryTextLines {
public:
  /// In bytes. Far above what a value of a registry can hold, and little enough for any memory.
  static constexpr std::size_t LongestLine = std::size_t{16} << 20;

  explicit RegistryTextLines(ByteSource source) : mSource(std::move(source)) {}

  /// Nothing behind the last line.
  std::optional<RegistryTextLine> Next();
  /// Makes Next give lines again that it gave last, in their order.
  void PutBack(std::span<RegistryTextLine> lines);

private:
  void DetectEncoding();
  void Refill();
  std::size_t EndOfLine() const;
  bool ReadBytes(std::string &bytes, bool &isTooLong);
  std::string_view CutEnd(std::string &bytes) const;

  ByteSource mSource;
  bool mIsBegun = false;
  bool mIsUtf16 = false;
  std::size_t mCount = 0;
  std::vector<std::uint8_t> mBlock;
  std::size_t mPlace = 0;
  std::deque<RegistryTextLine> mPutBack;
};

} // namespace turfdesk
