// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/AviFilm.h"

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <string>

namespace turfdesk {

namespace {

using Bytes = std::vector<std::uint8_t>;

std::string Number(std::uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8)
    bytes += static_cast<char>(value >> shift & 0xFF);
  return bytes;
}

std::string Chunk(const std::string &id, const std::string &data) {
  return id + Number(static_cast<std::uint32_t>(data.size())) + data +
         (data.size() % 2 == 1 ? std::string(1, '\0') : "");
}

std::string List(const std::string &type, const std::string &content) { return Chunk("LIST", type + content); }

/// A film of 4 by 2 pixels whose palette is black, red, green, blue.
struct Film {
  std::uint32_t compression = 1;
  std::uint32_t width = 4;
  std::uint32_t height = 2;
  std::uint32_t bits = 8;
  std::uint32_t colours = 4;
  std::vector<std::string> frames;
  std::string frameId = "00dc";

  std::string Text() const {
    const std::string format = Number(40) + Number(width) + Number(height) + Number(1 | bits << 16) +
                               Number(compression) + Number(0) + Number(0) + Number(0) + Number(colours) + Number(0) +
                               Number(0) + Number(0xFF0000) + Number(0x00FF00) + Number(0x0000FF);
    const std::string stream = List("strl", Chunk("strh", "vids" + Number(0)) + Chunk("strf", format));
    std::string movie;
    for (const std::string &frame : frames)
      movie += Chunk(frameId, frame);
    return Chunk("RIFF", "AVI " + List("hdrl", Chunk("avih", Number(50000)) + stream) + List("movi", movie));
  }
};

AviFilm Decode(const std::string &text) { return DecodeAvi(Bytes(text.begin(), text.end())); }

/// The colours of a picture by their first letters, rows from the top.
std::string Colours(const QImage &image) {
  std::string text;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x)
      text += "0rgb"[image.pixelIndex(x, y)];
    text += y + 1 < image.height() ? "/" : "";
  }
  return text;
}

using namespace std::string_literals;

// Lower row: two red, two literal green. Upper row: four blue.
const std::string WholeFrame = "\2\1\2\2\0\0"s + "\4\3" + "\0\1"s;
// Lower row: skip one to the right, then one blue.
const std::string DeltaFrame = "\0\2\1\0\1\3\0\1"s;

struct BrokenFilm {
  const char *name;
  std::string text;
};

void PrintTo(const BrokenFilm &film, std::ostream *out) { *out << film.name; }

std::vector<BrokenFilm> BrokenFilms() {
  const std::string good = Film{.frames = {WholeFrame}}.Text();
  return {
      {"Empty", ""},
      {"CutShort", good.substr(0, good.size() - 3)},
      {"OtherRiff", Chunk("RIFF", "WAVE" + Chunk("data", "x"))},
      {"NoFrames", Film{}.Text()},
      {"NoPixels", Film{.width = 0, .frames = {WholeFrame}}.Text()},
      {"Huge", Film{.width = 100000, .height = 100000, .frames = {""}}.Text()},
      {"NegativeHugeHeight", Film{.compression = 0, .height = 0x80000000, .frames = {""}}.Text()},
      {"TrueColour", Film{.bits = 24, .frames = {WholeFrame}}.Text()},
      {"OtherCodec", Film{.compression = 0x64697663, .frames = {WholeFrame}}.Text()},
      {"PaletteBeyondTheEnd", Film{.colours = 0, .frames = {WholeFrame}}.Text()},
      {"RunBeyondTheRow", Film{.frames = {"\5\1\0\1"s}}.Text()},
      {"RunBelowThePicture", Film{.frames = {"\0\0\0\0\1\1"s}}.Text()},
      {"DeltaOutOfThePicture", Film{.frames = {"\0\2\0\xFF\1\1"s}}.Text()},
      {"LiteralBeyondTheEnd", Film{.frames = {"\0\4\1"s}}.Text()},
      {"HalfARun", Film{.frames = {"\4"}}.Text()},
      {"PlainFrameTooShort", Film{.compression = 0, .frames = {"\1\1\1\1\2\2"}}.Text()},
  };
}

class BrokenFilmTest : public testing::TestWithParam<BrokenFilm> {};

} // namespace

TEST(AviFilmTest, RunLengthFramesBuildOnOneAnother) {
  const AviFilm film = Decode(Film{.frames = {WholeFrame, DeltaFrame, ""}}.Text());
  ASSERT_EQ(film.frames.size(), 3U);
  EXPECT_EQ(Colours(film.frames[0]), "bbbb/rrgg");
  EXPECT_EQ(Colours(film.frames[1]), "bbbb/rbgg");
  EXPECT_EQ(Colours(film.frames[2]), "bbbb/rbgg") << "an empty frame repeats the last";
  EXPECT_EQ(film.frames[0].pixelColor(0, 1), QColor(Qt::red));
  EXPECT_EQ(film.frameTime.count(), 50);
}

TEST(AviFilmTest, PlainFramesStandBothWaysUp) {
  const std::string rows = "\1\1\1\0\2\2\2\0"s;
  const Film film{.compression = 0, .width = 3, .frames = {rows}, .frameId = "00db"};
  EXPECT_EQ(Colours(Decode(film.Text()).frames[0]), "ggg/rrr");
  Film topDown = film;
  topDown.height = static_cast<std::uint32_t>(-2);
  EXPECT_EQ(Colours(Decode(topDown.Text()).frames[0]), "rrr/ggg");
}

TEST_P(BrokenFilmTest, IsRefused) {
  try {
    Decode(GetParam().text);
    FAIL() << "was played";
  } catch (const RuntimeError &error) {
    EXPECT_EQ(error.Number(), ErrorNumber::DeviceIo);
  }
}

INSTANTIATE_TEST_SUITE_P(All, BrokenFilmTest, testing::ValuesIn(BrokenFilms()),
                         [](const auto &film) { return std::string(film.param.name); });

} // namespace turfdesk
