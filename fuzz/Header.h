// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "Target.h"

#include <string>

namespace turfdesk::fuzz {

// What the headers are to yield, read from the bytes in another way than the program does.

inline constexpr std::size_t IdentitySize = 62;

std::int16_t WordAt(std::span<const std::uint8_t> bytes, std::size_t offset);
std::string KeyAt(std::span<const std::uint8_t> bytes, std::size_t offset);
/// Is the text in UTF-8 what the bytes, without their NULs, say in Windows-1252?
bool IsTextOf(const std::string &text, std::span<const std::uint8_t> bytes);

/// The fields that courses and libraries begin with. File is a CourseFile or a LibraryFile that has been read.
template <typename File> void RequireIdentity(const File &file, std::span<const std::uint8_t> bytes) {
  constexpr std::size_t guidOffset = 2;
  constexpr std::size_t nameOffset = 22;
  constexpr std::size_t nameLength = 40;
  Require(bytes.size() < guidOffset || file.Version() == WordAt(bytes, 0), "the version is the file's");
  Require(bytes.size() < guidOffset + 16 || file.GUID() == KeyAt(bytes, guidOffset), "the GUID is the file's");
  Require(bytes.size() < IdentitySize || IsTextOf(file.Name(), bytes.subspan(nameOffset, nameLength)),
          "the name is the file's");
}

} // namespace turfdesk::fuzz
