// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Makes sample content: courses, libraries, media, packages and whole worlds of them, good and hostile. Used by the
/// tests, the benchmarks and turfdesk-samples. Texts are UTF-8, paths are paths of the host.
namespace turfdesk::samples {

using Bytes = std::vector<std::uint8_t>;

/// The 16 bytes of a GUID as they stand in a file.
using Guid = std::array<std::uint8_t, 16>;

/// The key by which the catalogue knows the GUID: 38 characters, such as "{00112233-4455-6677-8899-AABBCCDDEEFF}".
std::string KeyOf(const Guid &guid);

/// A GUID that is always the same for the same text, and different for different ones.
Guid GuidFor(std::string_view text);

/// The text in Windows-1252. Throws std::invalid_argument when it has a character that the code page lacks.
std::string ToWindows1252(std::string_view utf8);

/// A path from UTF-8 text, whatever the host's own encoding.
std::filesystem::path HostPath(std::string_view utf8);

/// The UTF-8 text of a path.
std::string Utf8(const std::filesystem::path &path);

/// Writes a whole file, making missing folders and replacing what stood there. Throws std::system_error.
void WriteFile(const std::filesystem::path &path, std::span<const std::uint8_t> content);

/// Reads a whole file. Throws std::system_error.
Bytes ReadFile(const std::filesystem::path &path);

Bytes ToBytes(std::string_view text);

} // namespace turfdesk::samples
