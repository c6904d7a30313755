// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace turfdesk {

using ByteSpan = std::span<const std::uint8_t>;

/// Four characters as the number that they are in a file.
constexpr std::uint32_t FourCc(const char (&text)[5]) {
  std::uint32_t code = 0;
  for (int i = 3; i >= 0; --i)
    code = code << 8 | static_cast<std::uint8_t>(text[i]);
  return code;
}

/// Little-endian numbers at an offset. Throw RuntimeError 57 beyond the end of data.
std::uint16_t Le16(ByteSpan data, std::size_t offset);
std::uint32_t Le32(ByteSpan data, std::size_t offset);

/// A piece of a RIFF file, its data where the file lies in memory.
struct RiffChunk {
  std::uint32_t id = 0;
  ByteSpan data;

  /// The type of a list. Throws RuntimeError 57 when the chunk is too short for one.
  std::uint32_t Type() const { return Le32(data, 0); }
  bool IsList(const char (&type)[5]) const { return id == FourCc("LIST") && Type() == FourCc(type); }
  /// What stands in a list, behind its type.
  ByteSpan ListContent() const { return data.subspan(4); }
};

/// The chunks that data consists of. Throws RuntimeError 57 when one goes beyond the end.
std::vector<RiffChunk> RiffChunks(ByteSpan data);

} // namespace turfdesk
