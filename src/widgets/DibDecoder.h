// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "widgets/RiffReader.h"

#include <QImage>

namespace turfdesk {

/// How the frames of a video stream are stored: 8 bits a pixel, with a palette.
struct DibFormat {
  int width = 0;
  int height = 0;
  /// The first row of an uncompressed frame is the lowest one.
  bool bottomUp = true;
  bool runLength = false;
  QList<QRgb> palette;
};

/// Reads a bitmap header and the palette behind it. Throws RuntimeError 57 for a kind that is not played.
DibFormat ReadDibFormat(ByteSpan data);

/// Decodes frames one after the other; each may change only a part of the one before.
class DibDecoder {
public:
  explicit DibDecoder(const DibFormat &format);

  std::uint64_t FrameBytes() const { return static_cast<std::uint64_t>(mImage.sizeInBytes()); }
  /// Takes in the next frame; an empty one repeats the last. Throws RuntimeError 57 when it is broken.
  void Decode(ByteSpan frame);
  const QImage &Image() const { return mImage; }

private:
  void DecodePlain(ByteSpan frame);
  void DecodeRunLength(ByteSpan frame);

  DibFormat mFormat;
  QImage mImage;
};

} // namespace turfdesk
