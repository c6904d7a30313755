// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Archive.h"
#include "Target.h"

#include "samples/Packages.h"

#include <algorithm>

namespace turfdesk::fuzz {

namespace {

/// What of an entry the bytes give beside its name and content. All else is told honestly.
enum Bend : std::uint8_t {
  Deflated = 1,
  Flags = 2,
  Attributes = 4,
  Size = 8,
  Checksum = 16,
  LocalName = 32,
  Offset = 64,
  MethodAndExtra = 128,
};

/// Takes fields off the front of the bytes. Behind their end all are zero and empty.
class Fields {
public:
  explicit Fields(std::span<const std::uint8_t> bytes) : mRest(bytes) {}

  bool AtEnd() const { return mRest.empty(); }

  std::uint32_t Number(std::size_t length) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < std::min(length, mRest.size()); ++i)
      number |= std::uint32_t{mRest[i]} << (8 * i);
    mRest = mRest.subspan(std::min(length, mRest.size()));
    return number;
  }

  /// Up to the end of the line.
  samples::Bytes Line() {
    const auto end = std::find(mRest.begin(), mRest.end(), '\n');
    samples::Bytes line(mRest.begin(), end);
    mRest = mRest.subspan(std::min(line.size() + 1, mRest.size()));
    return line;
  }

  std::string Text() {
    const samples::Bytes line = Line();
    return {line.begin(), line.end()};
  }

private:
  std::span<const std::uint8_t> mRest;
};

samples::RawZipEntry TakeEntry(Fields &fields) {
  const std::uint32_t bends = fields.Number(1);
  const std::string name = fields.Text();
  samples::RawZipEntry entry = samples::ZipEntryOf({name, fields.Line(), (bends & Deflated) == 0});
  if (bends & Flags)
    entry.flags = static_cast<std::uint16_t>(fields.Number(2));
  if (bends & Attributes) {
    entry.versionMadeBy = static_cast<std::uint16_t>(fields.Number(2));
    entry.externalAttributes = fields.Number(4);
  }
  if (bends & Size)
    entry.size = fields.Number(4);
  if (bends & Checksum)
    entry.crc = fields.Number(4);
  if (bends & LocalName)
    entry.localName = fields.Text();
  if (bends & Offset)
    entry.localOffset = fields.Number(4);
  if (bends & MethodAndExtra) {
    entry.method = static_cast<std::uint16_t>(fields.Number(2));
    entry.centralExtra = fields.Line();
  }
  return entry;
}

/// The bytes from which TakeEntry makes an entry.
std::string EntryText(std::uint8_t bends, std::string_view name, std::string_view fields = "") {
  return static_cast<char>(bends) + std::string(name) + "\ncontent\n" + std::string(fields);
}

} // namespace

/// The bytes are not an archive but say what entries one is to have, so that names and lies need no right checksum
/// around them.
void Examine(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t mostEntries = 32;
  constexpr std::size_t longestField = 65535;
  if (bytes.size() > longestField)
    return;
  Fields fields(bytes);
  std::vector<samples::RawZipEntry> entries;
  while (!fields.AtEnd() && entries.size() < mostEntries)
    entries.push_back(TakeEntry(fields));
  ExamineArchive(samples::RawZipBytes(entries));
}

std::vector<samples::HostileFile> Seeds() {
  const std::pair<const char *, std::string> seeds[] = {
      {"nothing", ""},
      {"plain", EntryText(0, "Elm.hlc") + EntryText(Deflated, "Elm.bmp")},
      {"folders", EntryText(0, "Media/") + EntryText(0, "Media\\a.txt") + EntryText(0, "media/deep/b.txt")},
      {"file-and-folder", EntryText(0, "a") + EntryText(0, "A\\b")},
      {"same-name", EntryText(0, "\xC3\x89lm.hlc") + EntryText(0, "\xC3\xA9lm.hlc")},
      {"code-page-437", EntryText(Flags, "\x90lm.hlc", std::string(2, '\0'))},
      {"no-utf-8", EntryText(0, "\xC3\x28.txt")},
      {"outside", EntryText(0, "..\\..\\outside.txt")},
      {"outside-below", EntryText(0, "a/b/../../../outside.txt")},
      {"absolute", EntryText(0, "/tmp/outside.txt")},
      {"network", EntryText(0, "\\\\server\\share\\outside.txt")},
      {"drive", EntryText(0, "Z:\\tmp\\outside.txt")},
      {"drive-relative", EntryText(0, "C:outside.txt")},
      {"dots-in-between", EntryText(0, "./a//b.txt") + EntryText(0, "a/./.") + EntryText(0, "__MACOSX/._a")},
      {"folder-without-slash",
       EntryText(0, "a/b.txt") + EntryText(Attributes, "a", std::string("\x14\x03\0\0\xED\x41", 6))},
      {"harmless-beside-hostile", EntryText(0, "a") + EntryText(0, "..\\a") + EntryText(0, "A")},
      {"device", EntryText(0, "sub/COM\xC2\xB9.txt")},
      {"stream", EntryText(0, "a.txt:b")},
      {"dots-and-blanks", EntryText(0, "a. .") + EntryText(0, ". /b")},
      {"temporary-name", EntryText(0, ".turfdesk-aaaaaa.tmp") + EntryText(0, "b")},
      {"encrypted", EntryText(Flags, "a", std::string("\1\0", 2))},
      {"link", EntryText(Attributes, "a", std::string("\x14\x03\0\0\xFF\xA1", 6))},
      {"longer-than-said", EntryText(Deflated | Size, "a", std::string("\3\0\0\0", 4))},
      {"shorter-than-said", EntryText(Deflated | Size, "a", std::string("\xFF\0\0\0", 4))},
      {"64-bits-missing", EntryText(Size, "a", "\xFF\xFF\xFF\xFF")},
      {"huge", EntryText(Size, "a", "\xF0\xFF\xFF\xFF")},
      {"wrong-checksum", EntryText(Checksum, "a", "abcd")},
      {"two-names", EntryText(LocalName, "a", "..\\b\n")},
      {"beyond-the-end", EntryText(Offset, "a", "\xFF\xFF\xFF\x7F")},
      {"one-in-another", EntryText(0, "a") + EntryText(Offset, "b", std::string(4, '\0'))},
      {"other-method", EntryText(MethodAndExtra, "a", std::string("\x0C\0\n", 3))},
      {"own-time", EntryText(MethodAndExtra, "a", std::string("\0\0UT\5\0\1\1\2\3\4\n", 12))},
      {"name-in-extra",
       EntryText(MethodAndExtra, "a", std::string("\0\0up\x0F\0\1\x31\x2D\x74\xE8..\\..\\x.txt\n", 22))},
  };
  std::vector<samples::HostileFile> files;
  for (const auto &[name, bytes] : seeds)
    files.push_back({name, samples::ToBytes(bytes)});
  return files;
}

} // namespace turfdesk::fuzz
