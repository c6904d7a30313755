// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/RegistryTextLines.h"

#include "support/Utf16.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace turfdesk {

namespace {

// Even, so that no character of two bytes is torn apart.
constexpr std::size_t BlockSize = std::size_t{64} << 10;

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Utf16Mark = "\xFF\xFE";

constexpr const char *TooLong = "The line is too long.";
constexpr const char *NotUtf8 = "The line is not in UTF-8. The file should be in UTF-16, as the registry editor "
                                "writes it, or in UTF-8.";
constexpr const char *HalfCharacter = "The line holds half a character.";
constexpr const char *NulCharacter = "The line holds a NUL character.";

/// Makes the text of a line from its bytes and gives null, or the reason why there is none.
const char *Decode(std::string &&bytes, bool isUtf16, std::string &text) {
  if (isUtf16) {
    std::optional<std::string> decoded = Utf8FromUtf16(bytes);
    if (!decoded)
      return HalfCharacter;
    bytes = std::move(*decoded);
  } else if (!IsUtf8(bytes)) {
    return NotUtf8;
  }
  if (bytes.find('\0') != std::string::npos)
    return NulCharacter;
  text = std::move(bytes);
  return nullptr;
}

} // namespace

std::optional<RegistryTextLine> RegistryTextLines::Next() {
  if (!mPutBack.empty()) {
    RegistryTextLine line = std::move(mPutBack.front());
    mPutBack.pop_front();
    return line;
  }
  std::string bytes;
  bool isTooLong = false;
  if (!ReadBytes(bytes, isTooLong))
    return std::nullopt;
  RegistryTextLine line;
  line.number = ++mCount;
  line.end = CutEnd(bytes);
  line.fault = isTooLong ? TooLong : Decode(std::move(bytes), mIsUtf16, line.text);
  return line;
}

void RegistryTextLines::PutBack(std::span<RegistryTextLine> lines) {
  mPutBack.insert(mPutBack.begin(), std::make_move_iterator(lines.begin()), std::make_move_iterator(lines.end()));
}

/// Reads a line with its end. False behind the last one.
bool RegistryTextLines::ReadBytes(std::string &bytes, bool &isTooLong) {
  bool isEnded = false;
  bool isAny = false;
  while (!isEnded) {
    if (mPlace == mBlock.size())
      Refill();
    if (mPlace == mBlock.size())
      return isAny;
    isAny = true;
    const std::size_t end = EndOfLine();
    isEnded = end != std::string::npos;
    const std::size_t to = isEnded ? end : mBlock.size();
    isTooLong = isTooLong || bytes.size() + (to - mPlace) > LongestLine;
    if (!isTooLong)
      bytes.append(reinterpret_cast<const char *>(mBlock.data()) + mPlace, to - mPlace);
    mPlace = to;
  }
  return true;
}

void RegistryTextLines::Refill() {
  mBlock.resize(BlockSize);
  mBlock.resize(mSource(mBlock));
  mPlace = 0;
  if (!std::exchange(mIsBegun, true))
    DetectEncoding();
}

void RegistryTextLines::DetectEncoding() {
  const std::string_view head(reinterpret_cast<const char *>(mBlock.data()), mBlock.size());
  if (head.starts_with(Utf8Mark))
    mPlace = Utf8Mark.size();
  else if (head.starts_with(Utf16Mark))
    mPlace = Utf16Mark.size();
  // What begins such a file is ASCII, so without a mark a NUL in the second place tells as much.
  mIsUtf16 = mPlace == Utf16Mark.size() || (head.size() > 1 && head[0] != '\0' && head[1] == '\0');
}

/// The place behind the next line feed in the block.
std::size_t RegistryTextLines::EndOfLine() const {
  if (!mIsUtf16) {
    const auto found = std::find(mBlock.begin() + static_cast<std::ptrdiff_t>(mPlace), mBlock.end(), '\n');
    return found == mBlock.end() ? std::string::npos : static_cast<std::size_t>(found - mBlock.begin()) + 1;
  }
  for (std::size_t place = mPlace; place + 1 < mBlock.size(); place += 2)
    if (mBlock[place] == '\n' && mBlock[place + 1] == 0)
      return place + 2;
  return std::string::npos;
}

std::string_view RegistryTextLines::CutEnd(std::string &bytes) const {
  const auto cut = [&](char character) {
    const std::string encoded = mIsUtf16 ? std::string{character, '\0'} : std::string{character};
    if (!bytes.ends_with(encoded))
      return false;
    bytes.resize(bytes.size() - encoded.size());
    return true;
  };
  if (!cut('\n'))
    return "";
  return cut('\r') ? "\r\n" : "\n";
}

} // namespace turfdesk
