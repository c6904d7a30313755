// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "avi/AviFile.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <string_view>

namespace turfdesk::avi {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t PaletteSize = 256;

void PutDwords(Bytes &bytes, std::initializer_list<std::uint32_t> numbers) {
  for (const std::uint32_t number : numbers)
    for (unsigned shift = 0; shift < 32; shift += 8)
      bytes.push_back(static_cast<std::uint8_t>(number >> shift));
}

void PutText(Bytes &bytes, std::string_view text) { bytes.insert(bytes.end(), text.begin(), text.end()); }

std::uint32_t Size(const Bytes &bytes) { return static_cast<std::uint32_t>(bytes.size()); }

// A chunk is padded to an even length, which its stated size does not count.
void PutChunk(Bytes &bytes, std::string_view name, const Bytes &content) {
  PutText(bytes, name);
  PutDwords(bytes, {Size(content)});
  bytes.insert(bytes.end(), content.begin(), content.end());
  if (content.size() % 2 != 0)
    bytes.push_back(0);
}

Bytes MakeList(std::string_view kind, std::string_view type, const Bytes &content) {
  Bytes list;
  PutText(list, kind);
  PutDwords(list, {Size(content) + 4});
  PutText(list, type);
  list.insert(list.end(), content.begin(), content.end());
  return list;
}

void Append(Bytes &bytes, const Bytes &more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

/// What the headers tell of the film.
struct Film {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint32_t frames = 0;
  std::uint32_t framesPerSecond = 0;
  std::uint32_t largestFrame = 0;
};

Bytes MainHeader(const Film &film) {
  constexpr std::uint32_t hasIndex = 0x10;
  Bytes header;
  PutDwords(header, {1000000 / film.framesPerSecond, film.largestFrame * film.framesPerSecond, 0, hasIndex, film.frames,
                     0, 1, film.largestFrame, film.width, film.height, 0, 0, 0, 0});
  return header;
}

Bytes StreamHeader(const Film &film) {
  Bytes header;
  PutText(header, "vidsRLE ");
  PutDwords(header, {0, 0, 0, 1, film.framesPerSecond, 0, film.frames, film.largestFrame, 0xFFFFFFFF, 0, 0,
                     film.width | film.height << 16U});
  return header;
}

Bytes StreamFormat(const Film &film, const Palette &palette) {
  constexpr std::uint32_t rle8 = 1;
  constexpr std::uint32_t onePlaneOfEightBits = 1U | 8U << 16U;
  Bytes format;
  PutDwords(format, {40, film.width, film.height, onePlaneOfEightBits, rle8, film.width * film.height, 0, 0,
                     PaletteSize, PaletteSize});
  for (const auto &[red, green, blue] : palette)
    PutDwords(format, {static_cast<std::uint32_t>(blue | green << 8 | red << 16)});
  format.resize(40 + PaletteSize * 4);
  return format;
}

std::size_t RunLength(std::span<const std::uint8_t> line) {
  constexpr std::size_t longest = 255;
  const auto other = std::find_if(line.begin(), line.end(), [&](std::uint8_t pixel) { return pixel != line[0]; });
  return std::min<std::size_t>(static_cast<std::size_t>(other - line.begin()), longest);
}

// Pixels that a run would not serve: up to the next three equal ones.
std::size_t LiteralLength(std::span<const std::uint8_t> line) {
  constexpr std::size_t longest = 255;
  std::size_t length = 0;
  while (length < line.size() && length < longest && RunLength(line.subspan(length)) < 3)
    ++length;
  return length;
}

void CompressLine(Bytes &bytes, std::span<const std::uint8_t> line) {
  while (!line.empty()) {
    const std::size_t literals = LiteralLength(line);
    // The codes 0, 1 and 2 behind a zero mean something else, so short literals go as runs.
    if (literals < 3) {
      const std::size_t run = RunLength(line);
      bytes.push_back(static_cast<std::uint8_t>(run));
      bytes.push_back(line[0]);
      line = line.subspan(run);
      continue;
    }
    bytes.push_back(0);
    bytes.push_back(static_cast<std::uint8_t>(literals));
    bytes.insert(bytes.end(), line.begin(), line.begin() + static_cast<std::ptrdiff_t>(literals));
    if (literals % 2 != 0)
      bytes.push_back(0);
    line = line.subspan(literals);
  }
}

} // namespace

Bytes CompressRle8(const IndexedImage &image) {
  const auto width = static_cast<std::size_t>(image.width);
  Bytes bytes;
  for (auto line = static_cast<std::size_t>(image.height); line-- > 0;) {
    CompressLine(bytes, std::span(image.pixels).subspan(line * width, width));
    bytes.insert(bytes.end(), {0, 0});
  }
  bytes.back() = 1; // the last line ends the bitmap
  return bytes;
}

Bytes MakeAvi(const std::vector<IndexedImage> &frames, const Palette &palette, int framesPerSecond) {
  constexpr std::string_view frameChunk = "00dc";
  constexpr std::uint32_t keyFrame = 0x10;
  Film film{static_cast<std::uint32_t>(frames.at(0).width), static_cast<std::uint32_t>(frames.at(0).height),
            static_cast<std::uint32_t>(frames.size()), static_cast<std::uint32_t>(framesPerSecond), 0};
  Bytes movie;
  Bytes index;
  for (const IndexedImage &frame : frames) {
    const Bytes data = CompressRle8(frame);
    film.largestFrame = std::max(film.largestFrame, Size(data));
    PutText(index, frameChunk);
    PutDwords(index, {keyFrame, Size(movie) + 4, Size(data)});
    PutChunk(movie, frameChunk, data);
  }
  Bytes stream;
  PutChunk(stream, "strh", StreamHeader(film));
  PutChunk(stream, "strf", StreamFormat(film, palette));
  Bytes header;
  PutChunk(header, "avih", MainHeader(film));
  Append(header, MakeList("LIST", "strl", stream));
  Bytes content = MakeList("LIST", "hdrl", header);
  Append(content, MakeList("LIST", "movi", movie));
  PutChunk(content, "idx1", index);
  return MakeList("RIFF", "AVI ", content);
}

Bytes MakeAvi(const std::vector<Image> &frames, int framesPerSecond) {
  const Palette palette = ChoosePalette(frames);
  std::vector<IndexedImage> indexed;
  indexed.reserve(frames.size());
  for (const Image &frame : frames)
    indexed.push_back(ApplyPalette(frame, palette));
  return MakeAvi(indexed, palette, framesPerSecond);
}

} // namespace turfdesk::avi
