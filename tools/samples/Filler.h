// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"

namespace turfdesk::samples {

/// An endless stream of made-up game data: records that repeat in part and heights that change little from one to the
/// next. Deflate takes it to roughly half. The same seed gives the same bytes, however they are asked for.
class Filler {
public:
  explicit Filler(std::uint64_t seed);

  /// The next bytes of the stream.
  void Fill(std::span<std::uint8_t> buffer);

private:
  std::uint64_t Next();
  void MakeBlock();
  void MakeRecords();
  void MakeHeights();

  std::uint64_t mState;
  Bytes mBlock;
  std::size_t mUsed = 0;
  bool mRecordsNext = true;
  std::array<std::array<std::uint8_t, 20>, 64> mTemplates{};
  std::uint16_t mHeight = 0x4000;
};

/// Bytes that do not compress.
Bytes Noise(std::size_t size, std::uint64_t seed);

} // namespace turfdesk::samples
