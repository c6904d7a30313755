// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/RawZip.h"

#include <string_view>

namespace turfdesk::samples {

namespace {

class LittleEndian {
public:
  explicit LittleEndian(std::vector<std::uint8_t> &bytes) : mBytes(bytes) {}

  LittleEndian &Two(std::uint32_t value) { return Put(value, 2); }
  LittleEndian &Four(std::uint32_t value) { return Put(value, 4); }
  LittleEndian &Raw(std::span<const std::uint8_t> data) {
    mBytes.insert(mBytes.end(), data.begin(), data.end());
    return *this;
  }
  LittleEndian &Text(std::string_view text) {
    mBytes.insert(mBytes.end(), text.begin(), text.end());
    return *this;
  }
  std::uint32_t Offset() const { return static_cast<std::uint32_t>(mBytes.size()); }

private:
  LittleEndian &Put(std::uint32_t value, int count) {
    for (; count > 0; --count, value >>= 8)
      mBytes.push_back(static_cast<std::uint8_t>(value));
    return *this;
  }

  std::vector<std::uint8_t> &mBytes;
};

std::uint32_t SizeOf(const std::vector<std::uint8_t> &data) { return static_cast<std::uint32_t>(data.size()); }

std::uint32_t CrcOf(const RawZipEntry &entry) { return entry.crc ? *entry.crc : RawZipCrc(entry.data); }

std::uint32_t StatedSize(const RawZipEntry &entry) { return entry.size.value_or(SizeOf(entry.data)); }

std::uint32_t StatedCompressedSize(const RawZipEntry &entry) {
  return entry.compressedSize.value_or(SizeOf(entry.data));
}

void PutLocal(LittleEndian &out, const RawZipEntry &entry) {
  const std::string &name = entry.localName ? *entry.localName : entry.name;
  out.Text("PK\x03\x04").Two(entry.versionNeeded).Two(entry.flags).Two(entry.method);
  out.Two(entry.dosTime).Two(entry.dosDate).Four(CrcOf(entry));
  out.Four(entry.localCompressedSize.value_or(StatedCompressedSize(entry)));
  out.Four(entry.localSize.value_or(StatedSize(entry)));
  out.Two(static_cast<std::uint32_t>(name.size())).Two(SizeOf(entry.localExtra));
  out.Text(name).Raw(entry.localExtra).Raw(entry.data);
}

void PutCentral(LittleEndian &out, const RawZipEntry &entry, std::uint32_t localOffset) {
  out.Text("PK\x01\x02").Two(entry.versionMadeBy).Two(entry.versionNeeded).Two(entry.flags).Two(entry.method);
  out.Two(entry.dosTime).Two(entry.dosDate).Four(CrcOf(entry));
  out.Four(StatedCompressedSize(entry)).Four(StatedSize(entry));
  out.Two(static_cast<std::uint32_t>(entry.name.size())).Two(SizeOf(entry.centralExtra));
  constexpr std::uint16_t noComment = 0;
  constexpr std::uint16_t internalAttributes = 0;
  out.Two(noComment).Two(entry.disk).Two(internalAttributes).Four(entry.externalAttributes);
  out.Four(entry.localOffset.value_or(localOffset)).Text(entry.name).Raw(entry.centralExtra);
}

} // namespace

std::uint32_t RawZipCrc(std::span<const std::uint8_t> data) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const std::uint8_t byte : data) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit)
      crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~crc;
}

std::vector<std::uint8_t> RawZipBytes(const std::vector<RawZipEntry> &entries, const RawZipEnd &end) {
  std::vector<std::uint8_t> bytes;
  LittleEndian out(bytes);
  std::vector<std::uint32_t> localOffsets;
  for (const RawZipEntry &entry : entries) {
    localOffsets.push_back(out.Offset());
    PutLocal(out, entry);
  }
  const std::uint32_t directoryOffset = out.Offset();
  for (std::size_t i = 0; i < entries.size(); ++i)
    PutCentral(out, entries[i], localOffsets[i]);
  const std::uint32_t directorySize = out.Offset() - directoryOffset;

  const auto count = static_cast<std::uint16_t>(entries.size());
  out.Text("PK\x05\x06").Two(end.disk).Two(end.directoryDisk);
  out.Two(end.entriesOnDisk.value_or(count)).Two(end.entries.value_or(count));
  out.Four(end.directorySize.value_or(directorySize)).Four(end.directoryOffset.value_or(directoryOffset));
  out.Two(static_cast<std::uint32_t>(end.comment.size())).Text(end.comment);
  return bytes;
}

} // namespace turfdesk::samples
