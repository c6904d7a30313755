// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"

#include <optional>

namespace turfdesk::samples {

/// A library file to be made, or a library that a course asks for (then name and guid alone count).
struct LibrarySpec {
  /// At most 40 bytes of Windows-1252; longer ones are cut. A NUL inside is written as it is.
  std::string name = {};
  /// Left out: made from the name.
  std::optional<Guid> guid = {};
  std::int16_t version = 1;
  /// Size of the file in bytes; never less than the header takes.
  std::uint64_t size = 4096;
  /// Chooses the game data behind the header. The same seed gives the same bytes.
  std::uint64_t seed = 1;
};

/// Where a course's header departs from what its list of libraries says. Everything left out is honest.
struct CourseLies {
  /// The number of libraries that the header states.
  std::optional<std::int16_t> libraryCount = {};
  /// The place of the names list that the header states; the list itself stays where it is.
  std::optional<std::uint32_t> namesOffset = {};
  /// The names in the names list, instead of the libraries' own.
  std::optional<std::vector<std::string>> names = {};
  /// The names list lacks the empty text that ends it, and the file ends with it.
  bool endlessNames = false;
  /// The file is cut to this many bytes.
  std::optional<std::uint64_t> cutAt = {};
};

/// A course file to be made. Members as in LibrarySpec.
struct CourseSpec {
  std::string name = {};
  std::optional<Guid> guid = {};
  std::int16_t version = 2;
  std::vector<LibrarySpec> libraries = {};
  /// Bytes of game data between the list of GUIDs and the list of names.
  std::uint32_t gap = 64;
  std::uint64_t size = 4096;
  std::uint64_t seed = 1;
  CourseLies lies = {};
};

Guid GuidOf(const LibrarySpec &spec);
Guid GuidOf(const CourseSpec &spec);
/// The key under which the catalogue has it.
std::string KeyOf(const LibrarySpec &spec);
std::string KeyOf(const CourseSpec &spec);
/// The keys of the libraries that the course asks for, joined by commas: the library list of the course's row.
std::string LibraryListOf(const CourseSpec &spec);

/// The header alone, as far as it goes before the game data that only fills the file.
Bytes LibraryHeader(const LibrarySpec &spec);
Bytes CourseHeader(const CourseSpec &spec);

/// Write the file, header and game data, replacing what stood there and making missing folders. The content is
/// written in pieces, so that a file of any size needs little memory. Throw std::system_error.
void WriteLibrary(const std::filesystem::path &path, const LibrarySpec &spec);
void WriteCourse(const std::filesystem::path &path, const CourseSpec &spec);

/// The whole file's content.
Bytes LibraryBytes(const LibrarySpec &spec);
Bytes CourseBytes(const CourseSpec &spec);

} // namespace turfdesk::samples
