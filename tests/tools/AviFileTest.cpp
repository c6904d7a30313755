// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "avi/AviFile.h"

#include <gtest/gtest.h>
#include <string>

namespace turfdesk::avi {
namespace {

using Bytes = std::vector<std::uint8_t>;

IndexedImage Picture(int width, int height, int sort) {
  IndexedImage image{width, height, {}};
  for (int i = 0; i < width * height; ++i) {
    const int pixel = sort == 0 ? 7 : sort == 1 ? i * 31 : i % 5 == 0 ? i : i / 3;
    image.pixels.push_back(static_cast<std::uint8_t>(pixel));
  }
  return image;
}

// A player's view of RLE8 data. Fails the test on anything that steps outside the picture or the data.
IndexedImage Decode(const Bytes &data, int width, int height) {
  IndexedImage image{width, height, Bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))};
  int x = 0;
  int line = height - 1;
  const auto put = [&](std::uint8_t pixel) {
    const int place = line * width + x++;
    image.pixels.at(static_cast<std::size_t>(place)) = pixel;
  };
  for (std::size_t at = 0;;) {
    const int count = data.at(at++);
    const int code = data.at(at++);
    if (count > 0) {
      for (int i = 0; i < count; ++i)
        put(static_cast<std::uint8_t>(code));
    } else if (code < 2) {
      EXPECT_EQ(x, width);
      x = 0;
      --line;
      if (code == 1) {
        EXPECT_EQ(at, data.size());
        EXPECT_EQ(line, -1);
        return image;
      }
    } else {
      EXPECT_GT(code, 2) << "a jump, which no whole frame needs";
      for (int i = 0; i < code; ++i)
        put(data.at(at++));
      at += static_cast<std::size_t>(code % 2);
    }
  }
}

class Rle8 : public testing::TestWithParam<std::tuple<int, int>> {};

TEST_P(Rle8, KeepsEveryPixel) {
  const auto [width, sort] = GetParam();
  const IndexedImage picture = Picture(width, 3, sort);
  EXPECT_EQ(Decode(CompressRle8(picture), width, 3).pixels, picture.pixels);
}

// Around the longest run and the shortest and longest stretch of single pixels.
INSTANTIATE_TEST_SUITE_P(Widths, Rle8,
                         testing::Combine(testing::Values(1, 2, 3, 4, 255, 256, 257, 600), testing::Values(0, 1, 2)));

/// Walks the chunks of a RIFF file and notes the name, place and size of those that are no lists.
struct Chunk {
  std::string name;
  std::size_t at = 0;
  std::size_t size = 0;
};

std::size_t Number(const Bytes &bytes, std::size_t at) {
  return bytes.at(at) | bytes.at(at + 1) << 8U | bytes.at(at + 2) << 16U |
         static_cast<std::size_t>(bytes.at(at + 3)) << 24U;
}

std::vector<Chunk> Chunks(const Bytes &bytes) {
  std::vector<Chunk> chunks;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::string name(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                           bytes.begin() + static_cast<std::ptrdiff_t>(at) + 4);
    const std::size_t size = Number(bytes, at + 4);
    EXPECT_LE(at + 8 + size, bytes.size()) << name;
    const bool list = name == "RIFF" || name == "LIST";
    if (!list)
      chunks.push_back({name, at + 8, size});
    at += list ? 12 : 8 + size + size % 2;
  }
  return chunks;
}

TEST(MakeAvi, HeadersAndIndexAgreeWithTheFrames) {
  const std::vector<IndexedImage> frames = {Picture(37, 5, 0), Picture(37, 5, 1), Picture(37, 5, 2)};
  const Bytes film = MakeAvi(frames, {{1, 2, 3}, {4, 5, 6}}, 15);
  const std::vector<Chunk> chunks = Chunks(film);

  std::string names;
  for (const Chunk &chunk : chunks)
    names += chunk.name + ' ';
  ASSERT_EQ(names, "avih strh strf 00dc 00dc 00dc idx1 ");
  EXPECT_EQ(Number(film, chunks[0].at + 16), frames.size());
  EXPECT_EQ(Number(film, chunks[1].at + 24), 15U);
  EXPECT_EQ(Number(film, chunks[2].at + 40), 0x010203U);

  for (std::size_t i = 0; i < frames.size(); ++i) {
    const Chunk &chunk = chunks[3 + i];
    const auto begin = film.begin() + static_cast<std::ptrdiff_t>(chunk.at);
    const Bytes data(begin, begin + static_cast<std::ptrdiff_t>(chunk.size));
    EXPECT_EQ(Decode(data, 37, 5).pixels, frames[i].pixels);
    // Offsets in the index count from the list type "movi", four bytes ahead of the first frame's chunk.
    const std::size_t entry = chunks[6].at + 16 * i;
    EXPECT_EQ(Number(film, entry + 8) + chunks[3].at - 12, chunk.at - 8);
    EXPECT_EQ(Number(film, entry + 12), chunk.size);
  }
}

} // namespace
} // namespace turfdesk::avi
