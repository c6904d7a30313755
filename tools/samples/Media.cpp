// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/Media.h"

#include "samples/Filler.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace turfdesk::samples {

namespace {

void PutNumber(Bytes &bytes, std::uint32_t number, int size) {
  for (int i = 0; i < size; ++i, number >>= 8U)
    bytes.push_back(static_cast<std::uint8_t>(number));
}

void PutText(Bytes &bytes, std::string_view text) { bytes.insert(bytes.end(), text.begin(), text.end()); }

struct Colour {
  double red, green, blue;
};

Colour Blend(const Colour &from, const Colour &to, double share) {
  return {std::lerp(from.red, to.red, share), std::lerp(from.green, to.green, share),
          std::lerp(from.blue, to.blue, share)};
}

void PutPixel(Bytes &bytes, const Colour &colour) {
  for (const double part : {colour.blue, colour.green, colour.red})
    bytes.push_back(static_cast<std::uint8_t>(std::clamp(part, 0.0, 255.0)));
}

/// A landscape, asked for the colour at a place; both coordinates run from 0 to 1, y downwards.
class Landscape {
public:
  explicit Landscape(std::uint64_t seed) {
    const Bytes choices = Noise(8, seed);
    mPhase = choices[0] / 40.0;
    mSteepness = 0.05 + choices[1] / 4000.0;
    mFlagX = 0.25 + choices[2] / 512.0;
    mEvening = choices[3] % 3 == 0;
  }

  Colour At(double x, double y) const {
    if (OnFlag(x, y))
      return {214, 64, 52};
    if (OnStick(x, y))
      return {244, 240, 226};
    for (int hill = 2; hill >= 0; --hill) {
      const double edge = Ridge(x, hill);
      if (y > edge)
        return Blend(Grass(hill), {38, 74, 40}, (y - edge) * 0.9);
    }
    return Blend(mEvening ? Colour{120, 126, 176} : Colour{126, 172, 214},
                 mEvening ? Colour{250, 206, 160} : Colour{228, 240, 246}, y * 1.6);
  }

private:
  double Ridge(double x, int hill) const {
    const double wave = std::sin(x * (5.0 - hill) + mPhase * (hill + 1)) + 0.4 * std::sin(x * 11.0 + mPhase * 3);
    return 0.46 + 0.16 * hill - mSteepness * wave;
  }
  static Colour Grass(int hill) {
    constexpr std::array<Colour, 3> shades = {Colour{142, 178, 132}, {112, 166, 92}, {86, 150, 66}};
    return shades[static_cast<std::size_t>(hill)];
  }
  double FlagFoot() const { return Ridge(mFlagX, 1); }
  bool OnStick(double x, double y) const {
    return std::abs(x - mFlagX) < 0.004 && y < FlagFoot() + 0.01 && y > FlagFoot() - 0.22;
  }
  bool OnFlag(double x, double y) const {
    const double right = x - mFlagX;
    const double down = y - (FlagFoot() - 0.22);
    return right > 0 && down > right * 0.5 && down < 0.08 - right * 0.5;
  }

  double mPhase = 0;
  double mSteepness = 0;
  double mFlagX = 0;
  bool mEvening = false;
};

} // namespace

Bytes PictureBytes(int width, int height, std::uint64_t seed) {
  const std::size_t lineSize = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
  const auto dataSize = static_cast<std::uint32_t>(lineSize * static_cast<std::size_t>(height));
  constexpr std::uint32_t headerSize = 54;
  Bytes picture;
  picture.reserve(headerSize + dataSize);
  PutText(picture, "BM");
  for (const std::uint32_t number :
       {headerSize + dataSize, 0U, headerSize, 40U, static_cast<std::uint32_t>(width),
        static_cast<std::uint32_t>(height), 0x00180001U, 0U, dataSize, 2835U, 2835U, 0U, 0U})
    PutNumber(picture, number, 4);
  const Landscape landscape(seed);
  for (int line = height - 1; line >= 0; --line) {
    for (int column = 0; column < width; ++column)
      PutPixel(picture, landscape.At((column + 0.5) / width, (line + 0.5) / height));
    picture.resize(headerSize + lineSize * static_cast<std::size_t>(height - line));
  }
  return picture;
}

Bytes MusicBytes(int seconds, std::uint64_t seed) {
  constexpr std::uint32_t rate = 11025;
  constexpr std::uint32_t notesPerSecond = 4;
  constexpr std::array<double, 6> scale = {1.0, 9.0 / 8, 5.0 / 4, 3.0 / 2, 5.0 / 3, 2.0};
  const std::uint32_t samples = rate * static_cast<std::uint32_t>(seconds);
  const Bytes tune = Noise(static_cast<std::size_t>(seconds) * notesPerSecond + 1, seed);
  Bytes music;
  music.reserve(44 + samples * 2);
  PutText(music, "RIFF");
  PutNumber(music, 36 + samples * 2, 4);
  PutText(music, "WAVEfmt ");
  for (const std::uint32_t number : {16U, 0x00010001U, rate, rate * 2, 0x00100002U})
    PutNumber(music, number, 4);
  PutText(music, "data");
  PutNumber(music, samples * 2, 4);
  for (std::uint32_t i = 0; i < samples; ++i) {
    const std::uint32_t note = i * notesPerSecond / rate;
    const double age = static_cast<double>(i) * notesPerSecond / rate - note;
    const double pitch = 262.0 * scale[tune[note] % scale.size()];
    const double swing = std::sin(2 * std::numbers::pi * pitch * i / rate);
    PutNumber(music, static_cast<std::uint16_t>(static_cast<std::int16_t>(9000 * swing * std::exp(-3 * age))), 2);
  }
  return music;
}

std::string CourseNotes(std::string_view courseName, std::uint64_t seed) {
  constexpr std::array<std::string_view, 6> remarks = {
      "The wind comes off the water in the afternoon; take one club more on the way out.",
      "Mind the stream on the short par three. It is nearer than it looks.",
      "Best played early, with the dew still on the greens.",
      "The last hole rewards a brave line over the old wall.",
      "The bunkers left of the fairway were dug by hand, and play like it.",
      "Walk it once before you score it."};
  std::string notes(courseName);
  notes += "\r\n\r\n";
  const Bytes choices = Noise(3, seed);
  for (std::size_t i = 0; i < choices.size(); ++i)
    notes.append(remarks[(choices[0] + i * (1 + choices[1] % 5)) % remarks.size()]).append("\r\n");
  return notes;
}

Bytes Mp3Bytes(std::size_t size, std::uint64_t seed) {
  constexpr std::size_t frameSize = 417; // layer III at 128 kbit/s and 44.1 kHz
  constexpr std::array<std::uint8_t, 4> frameHeader = {0xFF, 0xFB, 0x90, 0x00};
  Bytes music = Noise(size, seed);
  for (std::size_t frame = 0; frame + frameHeader.size() <= size; frame += frameSize)
    std::copy(frameHeader.begin(), frameHeader.end(), music.begin() + static_cast<std::ptrdiff_t>(frame));
  return music;
}

} // namespace turfdesk::samples
