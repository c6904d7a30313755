// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "avi/Image.h"

#include <algorithm>
#include <limits>
#include <map>
#include <span>

namespace turfdesk::avi {

namespace {

using Pixel = std::array<std::uint8_t, 3>;

struct Count {
  Pixel pixel{};
  std::uint64_t times = 0;
};

std::vector<Count> CountColours(const std::vector<Image> &images) {
  std::map<Pixel, std::uint64_t> times;
  for (const Image &image : images)
    for (const Pixel &pixel : image.pixels)
      ++times[pixel];
  std::vector<Count> counts;
  counts.reserve(times.size());
  for (const auto &[pixel, number] : times)
    counts.push_back({pixel, number});
  return counts;
}

/// A box of colours, with the part (red, green, blue) that spreads most in it.
struct Box {
  std::span<Count> colours;
  std::size_t widestPart = 0;
  int spread = 0;
};

Box MakeBox(std::span<Count> colours) {
  Box box{colours};
  for (std::size_t part = 0; part < 3; ++part) {
    const auto [low, high] = std::minmax_element(
        colours.begin(), colours.end(), [&](const Count &a, const Count &b) { return a.pixel[part] < b.pixel[part]; });
    const int spread = high->pixel[part] - low->pixel[part];
    if (spread > box.spread) {
      box.spread = spread;
      box.widestPart = part;
    }
  }
  return box;
}

// Split by the number of different colours, not by how often each stands: the few pixels of ball and flag would
// otherwise lose their shades to the large meadow.
std::array<Box, 2> Split(const Box &box) {
  std::sort(box.colours.begin(), box.colours.end(),
            [&](const Count &a, const Count &b) { return a.pixel[box.widestPart] < b.pixel[box.widestPart]; });
  const std::size_t half = box.colours.size() / 2;
  return {MakeBox(box.colours.first(half)), MakeBox(box.colours.subspan(half))};
}

Pixel Average(std::span<const Count> colours) {
  std::array<std::uint64_t, 3> sums{};
  std::uint64_t times = 0;
  for (const Count &colour : colours) {
    times += colour.times;
    for (std::size_t part = 0; part < 3; ++part)
      sums[part] += colour.times * colour.pixel[part];
  }
  Pixel average{};
  for (std::size_t part = 0; part < 3; ++part)
    average[part] = static_cast<std::uint8_t>((sums[part] + times / 2) / times);
  return average;
}

int Distance(const Pixel &a, const Pixel &b) {
  constexpr std::array<int, 3> weights = {3, 6, 1}; // how much the eye minds
  int distance = 0;
  for (std::size_t part = 0; part < 3; ++part) {
    const int difference = a[part] - b[part];
    distance += weights[part] * difference * difference;
  }
  return distance;
}

std::uint8_t Nearest(const Pixel &pixel, const Palette &palette) {
  std::size_t nearest = 0;
  int least = std::numeric_limits<int>::max();
  for (std::size_t i = 0; i < palette.size(); ++i) {
    const int distance = Distance(pixel, palette[i]);
    if (distance < least) {
      least = distance;
      nearest = i;
    }
  }
  return static_cast<std::uint8_t>(nearest);
}

} // namespace

Palette ChoosePalette(const std::vector<Image> &images) {
  constexpr std::size_t most = 256;
  std::vector<Count> counts = CountColours(images);
  std::vector<Box> boxes = {MakeBox(counts)};
  while (boxes.size() < most) {
    const auto widest =
        std::max_element(boxes.begin(), boxes.end(), [](const Box &a, const Box &b) { return a.spread < b.spread; });
    if (widest->spread == 0)
      break;
    const auto halves = Split(*widest);
    *widest = halves[0];
    boxes.push_back(halves[1]);
  }
  Palette palette;
  for (const Box &box : boxes)
    palette.push_back(Average(box.colours));
  return palette;
}

IndexedImage ApplyPalette(const Image &image, const Palette &palette) {
  IndexedImage indexed{image.width, image.height, {}};
  indexed.pixels.reserve(image.pixels.size());
  std::map<Pixel, std::uint8_t> known;
  for (const Pixel &pixel : image.pixels) {
    const auto [place, added] = known.try_emplace(pixel, std::uint8_t{0});
    if (added)
      place->second = Nearest(pixel, palette);
    indexed.pixels.push_back(place->second);
  }
  return indexed;
}

} // namespace turfdesk::avi
