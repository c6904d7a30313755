// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "avi/AviFile.h"

#include <gtest/gtest.h>

namespace turfdesk::avi {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// A player's view of RLE8 data that has no jumps: the pixels of each line, from the lowest on.
std::vector<Bytes> Decode(const Bytes &data) {
  std::vector<Bytes> lines(1);
  for (std::size_t at = 0; at < data.size();) {
    const std::size_t count = data.at(at++);
    const std::uint8_t code = data.at(at++);
    if (count > 0) {
      lines.back().insert(lines.back().end(), count, code);
    } else if (code < 2) {
      EXPECT_EQ(code == 1, at == data.size()) << "the end of the picture";
      lines.emplace_back();
    } else {
      for (std::size_t i = 0; i < code; ++i)
        lines.back().push_back(data.at(at + i));
      at += code + code % 2U;
    }
  }
  lines.pop_back();
  return lines;
}

} // namespace

TEST(Rle8Test, KeepsEveryPixel) {
  // Around the longest run and the shortest and longest stretch of single pixels.
  for (const int width : {1, 2, 3, 4, 255, 256, 257, 600})
    for (const int sort : {0, 1, 2}) {
      IndexedImage picture{width, 2, {}};
      for (int i = 0; i < 2 * width; ++i)
        picture.pixels.push_back(static_cast<std::uint8_t>(sort == 0    ? 7
                                                           : sort == 1  ? i * 31
                                                           : i % 5 == 0 ? i
                                                                        : i / 3));
      const auto middle = picture.pixels.begin() + width;
      const std::vector<Bytes> expected = {{middle, picture.pixels.end()}, {picture.pixels.begin(), middle}};
      EXPECT_EQ(Decode(CompressRle8(picture)), expected) << width << " " << sort;
    }
}

} // namespace turfdesk::avi
