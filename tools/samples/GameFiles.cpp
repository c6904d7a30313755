// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/GameFiles.h"

#include "samples/Filler.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace turfdesk::samples {

namespace {

constexpr std::size_t NameFieldSize = 40;
constexpr std::size_t PieceSize = 1U << 20U;

/// Lays fields one after the other, numbers least significant byte first.
class HeaderWriter {
public:
  void Word(std::int16_t number) { Number(static_cast<std::uint16_t>(number), 2); }
  void Dword(std::uint32_t number) { Number(number, 4); }
  void Put(const Guid &guid) { mBytes.insert(mBytes.end(), guid.begin(), guid.end()); }

  void FixedText(std::string_view utf8, std::size_t size) {
    std::string text = ToWindows1252(utf8);
    text.resize(size);
    mBytes.insert(mBytes.end(), text.begin(), text.end());
  }

  void TerminatedText(std::string_view utf8) {
    const std::string text = ToWindows1252(utf8);
    mBytes.insert(mBytes.end(), text.begin(), text.end());
    mBytes.push_back(0);
  }

  // Bytes whose meaning is the game's alone. They are not zero, so that a reader that takes them for a field errs
  // where a test sees it.
  void Reserved(std::size_t size) { mBytes.insert(mBytes.end(), size, 0xA5); }

  Bytes Take() { return std::move(mBytes); }

private:
  void Number(std::uint32_t number, int bytes) {
    for (int i = 0; i < bytes; ++i, number >>= 8U)
      mBytes.push_back(static_cast<std::uint8_t>(number));
  }

  Bytes mBytes;
};

// The 62 bytes that open both kinds of file.
template <typename Spec> void PutIdentity(HeaderWriter &header, const Spec &spec) {
  header.Word(spec.version);
  header.Put(GuidOf(spec));
  header.Reserved(4);
  header.FixedText(spec.name, NameFieldSize);
}

std::vector<std::string> NamesOf(const CourseSpec &spec) {
  if (spec.lies.names)
    return *spec.lies.names;
  std::vector<std::string> names;
  for (const LibrarySpec &library : spec.libraries)
    names.push_back(library.name);
  return names;
}

void PutNames(HeaderWriter &header, const CourseSpec &spec) {
  const std::vector<std::string> names = NamesOf(spec);
  for (const std::string &name : names)
    header.TerminatedText(name);
  if (spec.lies.endlessNames)
    return;
  header.TerminatedText("");
  if (names.empty())
    header.TerminatedText("");
}

std::uint64_t FullSize(const LibrarySpec &spec, std::size_t headerSize) {
  return std::max<std::uint64_t>(spec.size, headerSize);
}

std::uint64_t FullSize(const CourseSpec &spec, std::size_t headerSize) {
  const std::uint64_t size = spec.lies.endlessNames ? headerSize : std::max<std::uint64_t>(spec.size, headerSize);
  return std::min(size, spec.lies.cutAt.value_or(size));
}

// Hands the file's content to a consumer, piece by piece.
template <typename Spec, typename Consumer>
void Produce(const Spec &spec, const Bytes &header, const Consumer &consume) {
  const std::uint64_t size = FullSize(spec, header.size());
  const auto headerPart = static_cast<std::size_t>(std::min<std::uint64_t>(size, header.size()));
  consume(std::span(header).first(headerPart));
  Filler filler(spec.seed);
  Bytes piece;
  for (std::uint64_t done = headerPart; done < size; done += piece.size()) {
    piece.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size - done, PieceSize)));
    filler.Fill(piece);
    consume(std::span<const std::uint8_t>(piece));
  }
}

template <typename Spec> Bytes ProduceBytes(const Spec &spec, const Bytes &header) {
  Bytes content;
  Produce(spec, header,
          [&](std::span<const std::uint8_t> piece) { content.insert(content.end(), piece.begin(), piece.end()); });
  return content;
}

template <typename Spec> void ProduceFile(const std::filesystem::path &path, const Spec &spec, const Bytes &header) {
  if (path.has_parent_path())
    std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  Produce(spec, header, [&](std::span<const std::uint8_t> piece) {
    file.write(reinterpret_cast<const char *>(piece.data()), static_cast<std::streamsize>(piece.size()));
  });
  file.close();
  if (!file)
    throw std::system_error(errno, std::generic_category(), path.string());
}

} // namespace

Guid GuidOf(const LibrarySpec &spec) { return spec.guid.value_or(GuidFor("library " + spec.name)); }

Guid GuidOf(const CourseSpec &spec) { return spec.guid.value_or(GuidFor("course " + spec.name)); }

std::string KeyOf(const LibrarySpec &spec) { return KeyOf(GuidOf(spec)); }

std::string KeyOf(const CourseSpec &spec) { return KeyOf(GuidOf(spec)); }

std::string LibraryListOf(const CourseSpec &spec) {
  std::string list;
  for (const LibrarySpec &library : spec.libraries)
    list += (list.empty() ? "" : ",") + KeyOf(library);
  return list;
}

Bytes LibraryHeader(const LibrarySpec &spec) {
  HeaderWriter header;
  PutIdentity(header, spec);
  return header.Take();
}

Bytes CourseHeader(const CourseSpec &spec) {
  const auto count = static_cast<std::int16_t>(spec.libraries.size());
  const auto namesOffset = static_cast<std::uint32_t>(268 + 16 * spec.libraries.size() + spec.gap);
  HeaderWriter header;
  PutIdentity(header, spec);
  header.Reserved(32);
  header.Word(spec.lies.libraryCount.value_or(count));
  header.Reserved(160);
  header.Dword(spec.lies.namesOffset.value_or(namesOffset));
  header.Reserved(8);
  for (const LibrarySpec &library : spec.libraries)
    header.Put(GuidOf(library));
  header.Reserved(spec.gap);
  PutNames(header, spec);
  return header.Take();
}

void WriteLibrary(const std::filesystem::path &path, const LibrarySpec &spec) {
  ProduceFile(path, spec, LibraryHeader(spec));
}

void WriteCourse(const std::filesystem::path &path, const CourseSpec &spec) {
  ProduceFile(path, spec, CourseHeader(spec));
}

Bytes LibraryBytes(const LibrarySpec &spec) { return ProduceBytes(spec, LibraryHeader(spec)); }

Bytes CourseBytes(const CourseSpec &spec) { return ProduceBytes(spec, CourseHeader(spec)); }

} // namespace turfdesk::samples
