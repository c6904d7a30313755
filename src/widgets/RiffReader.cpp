// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/RiffReader.h"

#include "platform/RuntimeError.h"

#include <algorithm>

namespace turfdesk {

namespace {

constexpr std::size_t ChunkHeader = 8;

} // namespace

std::uint16_t Le16(ByteSpan data, std::size_t offset) {
  if (data.size() < 2 || offset > data.size() - 2)
    throw RuntimeError(ErrorNumber::DeviceIo);
  return static_cast<std::uint16_t>(data[offset] | data[offset + 1] << 8);
}

std::uint32_t Le32(ByteSpan data, std::size_t offset) {
  const std::uint32_t low = Le16(data, offset);
  return low | static_cast<std::uint32_t>(Le16(data, offset + 2)) << 16;
}

std::vector<RiffChunk> RiffChunks(ByteSpan data) {
  std::vector<RiffChunk> chunks;
  while (data.size() >= ChunkHeader) {
    const std::size_t size = Le32(data, 4);
    if (size > data.size() - ChunkHeader)
      throw RuntimeError(ErrorNumber::DeviceIo);
    chunks.push_back({Le32(data, 0), data.subspan(ChunkHeader, size)});
    // Chunks begin at even places; the byte that fills an odd one up may be missing at the end.
    data = data.subspan(std::min(ChunkHeader + size + size % 2, data.size()));
  }
  return chunks;
}

} // namespace turfdesk
