// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QImage>

#include <chrono>
#include <cstdint>
#include <span>
#include <vector>

namespace turfdesk {

/// A short silent film, all its frames ready to be drawn.
struct AviFilm {
  /// At least one; all of one size.
  std::vector<QImage> frames;
  std::chrono::milliseconds frameTime{};
};

/// Decodes the first video stream of a plain RIFF AVI file with 8-bit frames, uncompressed or RLE8. Throws RuntimeError
/// 57 for a file that is broken, of another kind, or too big to be a progress animation.
AviFilm DecodeAvi(std::span<const std::uint8_t> file);

} // namespace turfdesk
