// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/ArchiveEnd.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace turfdesk {

namespace {

constexpr std::string_view LocalSignature = "PK\x03\x04";
constexpr std::string_view DirectorySignature = "PK\x01\x02";
constexpr std::string_view EndSignature = "PK\x05\x06";
constexpr std::string_view SpannedSignature = "PK\x07\x08";
constexpr std::string_view LargeEndSignature = "PK\x06\x06";
constexpr std::string_view LargeEndLocatorSignature = "PK\x06\x07";

constexpr std::size_t EndSize = 22;
constexpr std::size_t LongestComment = 65535;
constexpr std::size_t LargeEndSize = 56;
constexpr std::size_t LargeEndLocatorSize = 20;

using Bytes = std::vector<std::uint8_t>;

/// What of the bytes is there; short where the file ends before.
Bytes ReadAt(BinaryFile &file, std::uint64_t offset, std::size_t length) {
  Bytes bytes(length);
  file.Seek(offset);
  bytes.resize(file.Read(bytes));
  return bytes;
}

bool HasAt(std::span<const std::uint8_t> bytes, std::size_t offset, std::string_view text) {
  return offset + text.size() <= bytes.size() &&
         std::equal(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
}

bool StandsAt(BinaryFile &file, std::uint64_t offset, std::string_view text) {
  return HasAt(ReadAt(file, offset, text.size()), 0, text);
}

std::uint64_t Number(std::span<const std::uint8_t> bytes, std::size_t offset, std::size_t length) {
  std::uint64_t number = 0;
  for (std::size_t i = length; i > 0; --i)
    number = number << 8U | bytes[offset + i - 1];
  return number;
}

/// The last bytes of a file, in which an end record begins if there is one.
struct Tail {
  std::uint64_t start = 0;
  Bytes bytes;
};

Tail ReadTail(BinaryFile &file) {
  const std::uint64_t size = file.Size();
  const std::uint64_t length = std::min<std::uint64_t>(size, EndSize + LongestComment);
  return {size - length, ReadAt(file, size - length, static_cast<std::size_t>(length))};
}

/// Where in the tail the end record begins whose comment reaches to the end of the file.
std::optional<std::size_t> FindEnd(const Bytes &tail) {
  for (std::size_t length = EndSize; length <= tail.size(); ++length) {
    const std::size_t offset = tail.size() - length;
    if (HasAt(tail, offset, EndSignature) && Number(tail, offset + 20, 2) == length - EndSize)
      return offset;
  }
  return std::nullopt;
}

/// Where an archive's directory stands, and where its end record says that it does.
struct DirectoryPlace {
  std::uint64_t actual = 0;
  std::uint64_t stated = 0;
};

/// Where sizes or offsets take 64 bits they stand in a record of their own, right before its locator and that before
/// the end record.
DirectoryPlace LocateDirectory(BinaryFile &file, const Tail &tail, std::size_t end) {
  std::uint64_t directoryEnd = tail.start + end;
  std::uint64_t size = Number(tail.bytes, end + 12, 4);
  std::uint64_t stated = Number(tail.bytes, end + 16, 4);
  constexpr std::size_t bothSize = LargeEndSize + LargeEndLocatorSize;
  if (directoryEnd >= bothSize) {
    const Bytes large = ReadAt(file, directoryEnd - bothSize, bothSize);
    if (HasAt(large, 0, LargeEndSignature) && HasAt(large, LargeEndSize, LargeEndLocatorSignature)) {
      directoryEnd -= bothSize;
      size = Number(large, 40, 8);
      stated = Number(large, 48, 8);
    }
  }
  return {directoryEnd - std::min(directoryEnd, size), stated};
}

} // namespace

std::uint64_t BytesBeforeArchive(BinaryFile &file) {
  const Tail tail = ReadTail(file);
  const std::optional<std::size_t> end = FindEnd(tail.bytes);
  if (!end)
    return 0;
  const DirectoryPlace place = LocateDirectory(file, tail, *end);
  if (place.actual <= place.stated)
    return 0;
  const std::uint64_t before = place.actual - place.stated;
  // Only what is found where all offsets are taken to begin there: the directory, and the first file that it tells of.
  constexpr std::size_t entrySize = 46;
  const Bytes entry = ReadAt(file, place.actual, entrySize);
  const bool isThere = entry.size() == entrySize && HasAt(entry, 0, DirectorySignature) &&
                       StandsAt(file, before + Number(entry, 42, 4), LocalSignature);
  return isThere ? before : 0;
}

ZipStatus StatusWithoutDirectory(BinaryFile &file) {
  const Bytes tail = ReadTail(file).bytes;
  // A record that is cut short is none.
  const auto records = std::span(tail).first(tail.size() - std::min(tail.size(), EndSize - EndSignature.size()));
  if (std::search(records.begin(), records.end(), EndSignature.begin(), EndSignature.end()) != records.end())
    return ZipStatus::BadStructure;
  if (StandsAt(file, 0, LocalSignature))
    return ZipStatus::EndOfFile;
  return StandsAt(file, 0, SpannedSignature) ? ZipStatus::MultipleDisks : ZipStatus::NotAnArchive;
}

} // namespace turfdesk
