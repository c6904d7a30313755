// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/Filler.h"

#include <algorithm>
#include <cstring>

namespace turfdesk::samples {

namespace {

constexpr std::size_t BlockSize = 65536;
constexpr std::size_t RecordSize = 32;

// splitmix64: any seed will do, zero included.
std::uint64_t NextRandom(std::uint64_t &state) {
  std::uint64_t mixed = state += 0x9E3779B97F4A7C15ULL;
  mixed = (mixed ^ mixed >> 30U) * 0xBF58476D1CE4E5B9ULL;
  mixed = (mixed ^ mixed >> 27U) * 0x94D049BB133111EBULL;
  return mixed ^ mixed >> 31U;
}

void FillWithNoise(std::span<std::uint8_t> buffer, std::uint64_t &state) {
  while (!buffer.empty()) {
    const std::uint64_t random = NextRandom(state);
    const std::size_t part = std::min(buffer.size(), sizeof random);
    std::memcpy(buffer.data(), &random, part);
    buffer = buffer.subspan(part);
  }
}

} // namespace

Filler::Filler(std::uint64_t seed) : mState(seed), mBlock(BlockSize), mUsed(BlockSize) {
  for (auto &record : mTemplates)
    FillWithNoise(record, mState);
}

std::uint64_t Filler::Next() { return NextRandom(mState); }

void Filler::Fill(std::span<std::uint8_t> buffer) {
  while (!buffer.empty()) {
    if (mUsed == mBlock.size())
      MakeBlock();
    const std::size_t part = std::min(buffer.size(), mBlock.size() - mUsed);
    std::memcpy(buffer.data(), mBlock.data() + mUsed, part);
    mUsed += part;
    buffer = buffer.subspan(part);
  }
}

void Filler::MakeBlock() {
  if (mRecordsNext)
    MakeRecords();
  else
    MakeHeights();
  mRecordsNext = !mRecordsNext;
  mUsed = 0;
}

// An object on the course: a kind with its fixed properties, and a place and turn of its own.
void Filler::MakeRecords() {
  for (std::size_t start = 0; start < BlockSize; start += RecordSize) {
    const std::uint64_t random[] = {Next(), Next()};
    const auto &kind = mTemplates[random[1] >> 58U];
    std::memcpy(mBlock.data() + start, kind.data(), kind.size());
    std::memcpy(mBlock.data() + start + kind.size(), random, RecordSize - kind.size());
  }
}

// A height map: 16-bit numbers, each near the one before.
void Filler::MakeHeights() {
  for (std::size_t start = 0; start < BlockSize; start += 16) {
    std::uint64_t random = Next();
    for (std::size_t i = 0; i < 16; i += 2, random >>= 8U) {
      mHeight = static_cast<std::uint16_t>(mHeight + (random & 7U) - 3U);
      mBlock[start + i] = static_cast<std::uint8_t>(mHeight);
      mBlock[start + i + 1] = static_cast<std::uint8_t>(mHeight >> 8U);
    }
  }
}

Bytes Noise(std::size_t size, std::uint64_t seed) {
  Bytes noise(size);
  FillWithNoise(noise, seed);
  return noise;
}

} // namespace turfdesk::samples
