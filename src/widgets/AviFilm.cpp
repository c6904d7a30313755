// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/AviFilm.h"

#include "platform/RuntimeError.h"
#include "widgets/DibDecoder.h"
#include "widgets/RiffReader.h"

#include <algorithm>
#include <optional>

namespace turfdesk {

namespace {

using std::chrono::milliseconds;

/// Bytes of all decoded frames together.
constexpr std::uint64_t LargestFilm = std::uint64_t{64} * 1024 * 1024;

constexpr milliseconds ShortestFrameTime{10};
constexpr milliseconds LongestFrameTime{5000};

struct VideoStream {
  /// Place of the stream among all streams of the file; its frames bear it in their chunk names.
  std::uint32_t number = 0;
  DibFormat format;
};

/// What the header list tells, as far as playing needs it.
struct Header {
  std::uint32_t microsecondsPerFrame = 0;
  std::optional<VideoStream> video;
};

void ReadStream(ByteSpan list, std::uint32_t number, Header &header) {
  bool isVideo = false;
  for (const RiffChunk &chunk : RiffChunks(list)) {
    if (chunk.id == FourCc("strh"))
      isVideo = Le32(chunk.data, 0) == FourCc("vids");
    if (chunk.id == FourCc("strf") && isVideo && !header.video)
      header.video = VideoStream{number, ReadDibFormat(chunk.data)};
  }
}

Header ReadHeader(ByteSpan list) {
  Header header;
  std::uint32_t streams = 0;
  for (const RiffChunk &chunk : RiffChunks(list)) {
    if (chunk.id == FourCc("avih"))
      header.microsecondsPerFrame = Le32(chunk.data, 0);
    if (chunk.IsList("strl"))
      ReadStream(chunk.ListContent(), streams++, header);
  }
  return header;
}

/// Is this chunk a frame of the stream? Its id is the stream's number in two digits and "db" or "dc".
bool IsFrame(const RiffChunk &chunk, std::uint32_t stream) {
  const std::uint32_t digits = ('0' + stream / 10 % 10) | ('0' + stream % 10) << 8;
  const std::uint32_t kind = chunk.id >> 16;
  return (chunk.id & 0xFFFF) == digits && (kind == FourCc("db__") % 0x10000 || kind == FourCc("dc__") % 0x10000);
}

void AddFrames(ByteSpan list, const VideoStream &stream, DibDecoder &decoder, std::vector<QImage> &frames) {
  for (const RiffChunk &chunk : RiffChunks(list)) {
    if (!IsFrame(chunk, stream.number))
      continue;
    if ((frames.size() + 1) * decoder.FrameBytes() > LargestFilm)
      throw RuntimeError(ErrorNumber::DeviceIo);
    decoder.Decode(chunk.data);
    frames.push_back(decoder.Image());
  }
}

std::vector<QImage> ReadFrames(ByteSpan movie, const VideoStream &stream) {
  std::vector<QImage> frames;
  DibDecoder decoder(stream.format);
  AddFrames(movie, stream, decoder, frames);
  // Frames may be grouped in lists for reading from slow discs.
  for (const RiffChunk &chunk : RiffChunks(movie))
    if (chunk.IsList("rec "))
      AddFrames(chunk.ListContent(), stream, decoder, frames);
  return frames;
}

} // namespace

AviFilm DecodeAvi(std::span<const std::uint8_t> file) {
  const std::vector<RiffChunk> top = RiffChunks(file);
  if (top.empty() || top.front().id != FourCc("RIFF") || top.front().Type() != FourCc("AVI "))
    throw RuntimeError(ErrorNumber::DeviceIo);
  Header header;
  AviFilm film;
  for (const RiffChunk &chunk : RiffChunks(top.front().ListContent())) {
    if (chunk.IsList("hdrl"))
      header = ReadHeader(chunk.ListContent());
    if (chunk.IsList("movi") && header.video && film.frames.empty())
      film.frames = ReadFrames(chunk.ListContent(), *header.video);
  }
  if (film.frames.empty())
    throw RuntimeError(ErrorNumber::DeviceIo);
  film.frameTime = std::clamp(milliseconds(header.microsecondsPerFrame / 1000), ShortestFrameTime, LongestFrameTime);
  return film;
}

} // namespace turfdesk
