// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// Writes zip archives byte by byte, so that every header field can lie. Nothing is checked and nothing is compressed.
namespace turfdesk::samples {

/// What one entry's two headers say. Fields that are left out are told honestly.
struct RawZipEntry {
  std::string name = {};
  /// The bytes between the headers, as they stand in the archive: compressed already where the method says so.
  std::vector<std::uint8_t> data = {};

  std::uint16_t method = 0;
  /// Bit 0 encrypted, bit 11 (0x800) name in UTF-8.
  std::uint16_t flags = 0;
  std::uint16_t versionMadeBy = 0x0314;
  std::uint16_t versionNeeded = 20;
  /// 12:34:56 on 5 June 2021.
  std::uint16_t dosTime = 0x645C;
  std::uint16_t dosDate = 0x52C5;
  std::uint16_t disk = 0;
  /// The Unix mode stands in the upper half: a regular file, rw-r--r--.
  std::uint32_t externalAttributes = 0x81A40000;
  std::vector<std::uint8_t> localExtra = {};
  std::vector<std::uint8_t> centralExtra = {};

  /// Those of the uncompressed content. Left out: those of data, which is honest for stored entries.
  std::optional<std::uint32_t> crc = {};
  std::optional<std::uint32_t> size = {};
  std::optional<std::uint32_t> compressedSize = {};
  std::optional<std::uint32_t> localOffset = {};

  /// Where the local header differs from the central directory.
  std::optional<std::string> localName = {};
  std::optional<std::uint32_t> localSize = {};
  std::optional<std::uint32_t> localCompressedSize = {};
};

/// What the end record says. Fields that are left out are told honestly.
struct RawZipEnd {
  std::uint16_t disk = 0;
  std::uint16_t directoryDisk = 0;
  std::optional<std::uint16_t> entriesOnDisk = {};
  std::optional<std::uint16_t> entries = {};
  std::optional<std::uint32_t> directorySize = {};
  std::optional<std::uint32_t> directoryOffset = {};
  std::string comment = {};
};

/// The archive's bytes: local headers with their data, central directory, end record, in that order.
std::vector<std::uint8_t> RawZipBytes(const std::vector<RawZipEntry> &entries, const RawZipEnd &end = {});

/// The CRC-32 that zip headers state.
std::uint32_t RawZipCrc(std::span<const std::uint8_t> data);

} // namespace turfdesk::samples
