// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace turfdesk::avi {

/// A colour with parts from 0 to 255.
struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;
};

/// A true-colour picture, lines from the top.
struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::array<std::uint8_t, 3>> pixels;
};

/// A picture of palette indexes, lines from the top.
struct IndexedImage {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;
};

/// At most 256 colours as red, green, blue.
using Palette = std::vector<std::array<std::uint8_t, 3>>;

/// One palette for all the pictures, chosen so that their colours are met well.
Palette ChoosePalette(const std::vector<Image> &images);

/// The picture with each colour replaced by the nearest of the palette.
IndexedImage ApplyPalette(const Image &image, const Palette &palette);

} // namespace turfdesk::avi
