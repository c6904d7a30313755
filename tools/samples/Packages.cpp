// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/Packages.h"

#include <algorithm>
#include <stdexcept>
#include <zlib.h>

namespace turfdesk::samples {

namespace {

constexpr std::uint16_t MethodDeflate = 8;
constexpr std::uint16_t FlagUtf8 = 0x800;

Bytes Deflate(std::span<const std::uint8_t> content) {
  constexpr int rawWindowBits = -MAX_WBITS; // zip wants the bare stream, without zlib's own header
  z_stream stream{};
  if (deflateInit2(&stream, 6, Z_DEFLATED, rawWindowBits, 8, Z_DEFAULT_STRATEGY) != Z_OK)
    throw std::runtime_error("deflate cannot start");
  Bytes packed(deflateBound(&stream, static_cast<uLong>(content.size())));
  stream.next_in = const_cast<std::uint8_t *>(content.data()); // zlib only reads it
  stream.avail_in = static_cast<uInt>(content.size());
  stream.next_out = packed.data();
  stream.avail_out = static_cast<uInt>(packed.size());
  const int status = deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  if (status != Z_STREAM_END)
    throw std::runtime_error("deflate failed");
  return packed;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

RawZipEntry ZipEntryOf(const PackageEntry &entry) {
  RawZipEntry zipped;
  zipped.name = entry.name;
  zipped.flags = IsAscii(entry.name) ? std::uint16_t{0} : FlagUtf8;
  zipped.crc = static_cast<std::uint32_t>(crc32(0, entry.content.data(), static_cast<uInt>(entry.content.size())));
  zipped.size = static_cast<std::uint32_t>(entry.content.size());
  zipped.method = entry.stored ? std::uint16_t{0} : MethodDeflate;
  zipped.data = entry.stored ? entry.content : Deflate(entry.content);
  return zipped;
}

Bytes PackageBytes(const std::vector<PackageEntry> &entries) {
  std::vector<RawZipEntry> zipped;
  zipped.reserve(entries.size());
  for (const PackageEntry &entry : entries)
    zipped.push_back(ZipEntryOf(entry));
  return RawZipBytes(zipped);
}

void WritePackage(const std::filesystem::path &path, const std::vector<PackageEntry> &entries) {
  WriteFile(path, PackageBytes(entries));
}

} // namespace turfdesk::samples
