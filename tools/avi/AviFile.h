// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "avi/Image.h"

namespace turfdesk::avi {

/// The bytes of a RIFF AVI with one silent video stream of 8-bit frames in RLE8 compression, every frame whole, with
/// an index. All frames are of one size; the palette has at most 256 colours.
std::vector<std::uint8_t> MakeAvi(const std::vector<IndexedImage> &frames, const Palette &palette, int framesPerSecond);

/// The same for true-colour frames, with a palette chosen for them.
std::vector<std::uint8_t> MakeAvi(const std::vector<Image> &frames, int framesPerSecond);

/// One picture as RLE8 data: lines from the bottom, each with its end-of-line code, then the end-of-bitmap code.
std::vector<std::uint8_t> CompressRle8(const IndexedImage &image);

} // namespace turfdesk::avi
