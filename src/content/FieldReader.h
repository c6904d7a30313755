// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace turfdesk {

/// Reads the fields of a course or library header, strictly forward from the file's start. Texts are Windows-1252 in
/// the file and UTF-8 in the result.
///
/// Every routine throws RuntimeError 62 when the file ends before the field does, and then returns nothing.
class FieldReader {
public:
  /// file must outlive the reader.
  explicit FieldReader(BinaryFile &file) : mFile(file) {}

  /// With a length of 1 or more exactly that many bytes: a NUL among them is passed over and does not end the text.
  /// With 0 or less the bytes up to and including the first NUL.
  std::string ReadString(std::int32_t length);
  /// Terminated texts up to and including the empty text that ends the list. One empty text ahead of the first name is
  /// passed over. No names give an empty list. Nothing but the end of the file bounds it.
  std::vector<std::string> ReadStringList();
  /// Drops that many bytes.
  void SkipBytes(std::int32_t count);
  /// Two bytes, the least significant first.
  std::int16_t ReadWord();
  /// Four bytes, the least significant first, of which only 16 bits can be held: RuntimeError 6 for a value above
  /// 0xFFFF; 0x8000 to 0xFFFF are negative.
  std::int16_t ReadDword();
  /// A GUID of 16 bytes as 38 characters in braces, upper-case hexadecimal. The first three groups are little-endian
  /// numbers, the last two stand in file order.
  std::string ReadGUID();

private:
  std::uint8_t ReadByte() {
    if (mPosition == mEnd)
      Refill();
    return mBuffer[mPosition++];
  }
  void Refill();

  BinaryFile &mFile;
  // One page holds the header of nearly every course, so that most are read by one call.
  std::array<std::uint8_t, 4096> mBuffer;
  std::size_t mPosition = 0;
  std::size_t mEnd = 0;
};

} // namespace turfdesk
