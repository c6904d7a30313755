// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Header.h"
#include "InputFile.h"

#include "content/CourseFile.h"

#include <algorithm>
#include <array>
#include <optional>

namespace turfdesk::fuzz {

namespace {

constexpr std::size_t CountOffset = 94;
constexpr std::size_t NamesOffset = 256;
constexpr std::size_t GuidsOffset = 268;
constexpr std::size_t GuidSize = 16;

std::size_t LibraryCount(std::span<const std::uint8_t> bytes) {
  return static_cast<std::size_t>(std::max<std::int16_t>(WordAt(bytes, CountOffset), 0));
}

/// The bytes from the list of names on; nothing when the course has none or they are not reached.
std::optional<std::span<const std::uint8_t>> NamesIn(std::span<const std::uint8_t> bytes) {
  const std::size_t count = LibraryCount(bytes);
  const std::int32_t offset = WordAt(bytes, NamesOffset);
  if (count == 0 || offset < static_cast<std::int32_t>(GuidsOffset + GuidSize * count))
    return std::nullopt;
  return bytes.subspan(std::min(static_cast<std::size_t>(offset), bytes.size()));
}

/// Does the file hold all that its header speaks of, in numbers of 16 bits?
bool IsWhole(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < GuidsOffset || WordAt(bytes, NamesOffset + 2) != 0)
    return false;
  const std::size_t guidsSize = GuidSize * LibraryCount(bytes);
  if (guidsSize > INT16_MAX || bytes.size() < GuidsOffset + guidsSize)
    return false;
  const auto names = NamesIn(bytes);
  constexpr std::array<std::uint8_t, 2> endOfNames = {};
  return !names || std::search(names->begin(), names->end(), endOfNames.begin(), endOfNames.end()) != names->end();
}

void RequireNames(const std::vector<std::string> &names, std::span<const std::uint8_t> rest) {
  if (!names.empty() && !rest.empty() && rest.front() == 0)
    rest = rest.subspan(1);
  for (const std::string &name : names) {
    const auto length = static_cast<std::size_t>(std::find(rest.begin(), rest.end(), 0) - rest.begin());
    Require(length > 0 && length < rest.size() && IsTextOf(name, rest.first(length)), "a name is the file's");
    rest = rest.subspan(length + 1);
  }
  Require(!rest.empty() && rest.front() == 0, "the names end where the file ends them");
}

void RequireLibraries(const CourseFile &course, std::span<const std::uint8_t> bytes) {
  Require(course.NumOfLibraries() == WordAt(bytes, CountOffset), "the count is the file's");
  const std::vector<std::string> &guids = course.LibraryGUIDS();
  Require(guids.size() == LibraryCount(bytes), "there are as many GUIDs as stated");
  for (std::size_t i = 0; i < guids.size(); ++i)
    Require(guids[i] == KeyAt(bytes, GuidsOffset + GuidSize * i), "a GUID is the file's");
  if (const auto names = NamesIn(bytes))
    RequireNames(course.LibraryNames(), *names);
  else
    Require(course.LibraryNames().empty(), "there are names only where the file has them");
}

} // namespace

void Examine(std::span<const std::uint8_t> bytes) {
  static InputFile input;
  input.Write(bytes);
  CourseFile course(input.State());
  course.FileName = input.Path();
  const bool isRead = course.ReadFile();
  Require(isRead == IsWhole(bytes), "a whole header, and no other, is read");
  RequireIdentity(course, bytes);
  Require(course.FileSize() == bytes.size(), "the size is the file's");
  if (isRead)
    RequireLibraries(course, bytes);
  const std::string &words = course.LastError();
  Require(isRead ? words.empty() : words == "Input past end of file" || words == "Overflow", "a failure has words");
}

std::vector<samples::HostileFile> Seeds() { return samples::HostileCourses(); }

} // namespace turfdesk::fuzz
