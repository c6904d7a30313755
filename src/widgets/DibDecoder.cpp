// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/DibDecoder.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <cstring>

namespace turfdesk {

namespace {

constexpr std::size_t HeaderSize = 40;
constexpr std::size_t PaletteSize = 256;
constexpr int LargestSide = 2048;

[[noreturn]] void Refuse() { throw RuntimeError(ErrorNumber::DeviceIo); }

QList<QRgb> ReadPalette(ByteSpan data, std::size_t offset, std::uint32_t colours) {
  if (colours > PaletteSize)
    Refuse();
  QList<QRgb> palette;
  for (std::size_t i = 0; i < (colours == 0 ? PaletteSize : colours); ++i)
    palette.append(Le32(data, offset + 4 * i) | 0xFF000000U);
  // A frame may name a colour that the palette lacks.
  palette.resize(PaletteSize, qRgb(0, 0, 0));
  return palette;
}

/// The pixels of a frame stored in runs, drawn over what stood there before. Rows go from the lowest up.
class RunLengthPainter {
public:
  RunLengthPainter(QImage &image, ByteSpan runs) : mImage(image), mRuns(runs) {}

  void Paint() {
    while (!mEnded && mNext < mRuns.size()) {
      const std::uint8_t count = Take();
      const std::uint8_t value = Take();
      if (count > 0)
        std::memset(Claim(count), value, count);
      else
        Escape(value);
    }
  }

private:
  void Escape(std::uint8_t code) {
    switch (code) {
    case 0:
      mX = 0;
      ++mY;
      return;
    case 1:
      mEnded = true;
      return;
    case 2:
      mX += Take();
      mY += Take();
      return;
    default:
      Literal(code);
    }
  }

  void Literal(std::uint8_t count) {
    const std::size_t padded = count + count % 2U;
    if (padded > mRuns.size() - mNext)
      Refuse();
    std::memcpy(Claim(count), mRuns.data() + mNext, count);
    mNext += padded;
  }

  /// The place of the next pixels, which must all lie in one row of the picture.
  std::uint8_t *Claim(int count) {
    if (mY >= mImage.height() || mX + count > mImage.width())
      Refuse();
    std::uint8_t *place = mImage.scanLine(mImage.height() - 1 - mY) + mX;
    mX += count;
    return place;
  }

  std::uint8_t Take() {
    if (mNext >= mRuns.size())
      Refuse();
    return mRuns[mNext++];
  }

  QImage &mImage;
  ByteSpan mRuns;
  std::size_t mNext = 0;
  int mX = 0;
  int mY = 0;
  bool mEnded = false;
};

} // namespace

DibFormat ReadDibFormat(ByteSpan data) {
  const std::uint32_t headerSize = Le32(data, 0);
  const auto width = static_cast<std::int32_t>(Le32(data, 4));
  const auto height = static_cast<std::int32_t>(Le32(data, 8));
  const std::uint32_t compression = Le32(data, 16);
  if (headerSize < HeaderSize || Le16(data, 14) != 8 || compression > 1)
    Refuse();
  if (width < 1 || width > LargestSide || height < -LargestSide || height > LargestSide || height == 0)
    Refuse();
  const bool runLength = compression == 1;
  if (runLength && height < 0)
    Refuse();
  return {width, std::abs(height), height > 0, runLength, ReadPalette(data, headerSize, Le32(data, 32))};
}

DibDecoder::DibDecoder(const DibFormat &format)
    : mFormat(format), mImage(format.width, format.height, QImage::Format_Indexed8) {
  if (mImage.isNull())
    Refuse();
  mImage.setColorTable(format.palette);
  mImage.fill(0);
}

void DibDecoder::Decode(ByteSpan frame) {
  if (frame.empty())
    return;
  if (mFormat.runLength)
    DecodeRunLength(frame);
  else
    DecodePlain(frame);
}

void DibDecoder::DecodePlain(ByteSpan frame) {
  const auto width = static_cast<std::size_t>(mFormat.width);
  const std::size_t stride = (width + 3) / 4 * 4;
  if (frame.size() < stride * static_cast<std::size_t>(mFormat.height))
    Refuse();
  for (int y = 0; y < mFormat.height; ++y) {
    const int stored = mFormat.bottomUp ? mFormat.height - 1 - y : y;
    std::memcpy(mImage.scanLine(y), frame.data() + stride * static_cast<std::size_t>(stored), width);
  }
}

void DibDecoder::DecodeRunLength(ByteSpan frame) { RunLengthPainter(mImage, frame).Paint(); }

} // namespace turfdesk
