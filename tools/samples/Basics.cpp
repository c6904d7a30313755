// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/Basics.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace turfdesk::samples {

namespace {

// What the bytes 0x80 to 0x9F mean. The five that the code page leaves open stand for the control character of the
// same number, as the converters of Windows have it.
constexpr std::array<char32_t, 32> HighControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t TakeCharacter(std::string_view &text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (text.size() < length || (lead >= 0x80 && lead < 0xC2))
    throw std::invalid_argument("not UTF-8");
  char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i)
    character = character << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
  text.remove_prefix(length);
  return character;
}

std::uint8_t Windows1252Byte(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
    return static_cast<std::uint8_t>(character);
  const auto *const place = std::find(HighControls.begin(), HighControls.end(), character);
  if (place == HighControls.end())
    throw std::invalid_argument("a character that Windows-1252 lacks");
  return static_cast<std::uint8_t>(0x80 + (place - HighControls.begin()));
}

// FNV-1a: short, and good enough to keep a few ten thousand names apart in 128 bits.
std::uint64_t Hash(std::string_view text, std::uint64_t start) {
  std::uint64_t hash = start;
  for (const char c : text)
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
  return hash ^ hash >> 29U;
}

[[noreturn]] void ThrowSystemError(const std::filesystem::path &path) {
  throw std::system_error(errno, std::generic_category(), Utf8(path));
}

} // namespace

std::string KeyOf(const Guid &guid) {
  // The first three groups are little-endian numbers, the last two stand in file order.
  constexpr std::array<int, 20> order = {3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15};
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string key = "{";
  for (const int place : order) {
    if (place < 0) {
      key += '-';
      continue;
    }
    const std::uint8_t byte = guid[static_cast<std::size_t>(place)];
    key += digits[byte >> 4U];
    key += digits[byte & 15U];
  }
  return key + '}';
}

Guid GuidFor(std::string_view text) {
  Guid guid{};
  std::uint64_t halves[] = {Hash(text, 0xCBF29CE484222325ULL), Hash(text, 0x84222325CBF29CE4ULL)};
  for (std::size_t i = 0; i < guid.size(); ++i)
    guid[i] = static_cast<std::uint8_t>(halves[i / 8] >> (i % 8 * 8));
  return guid;
}

std::string ToWindows1252(std::string_view utf8) {
  std::string encoded;
  while (!utf8.empty())
    encoded += static_cast<char>(Windows1252Byte(TakeCharacter(utf8)));
  return encoded;
}

std::filesystem::path HostPath(std::string_view utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

std::string Utf8(const std::filesystem::path &path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

void WriteFile(const std::filesystem::path &path, std::span<const std::uint8_t> content) {
  if (path.has_parent_path())
    std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char *>(content.data()), static_cast<std::streamsize>(content.size()));
  file.close();
  if (!file)
    ThrowSystemError(path);
}

Bytes ReadFile(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  if (!file)
    ThrowSystemError(path);
  Bytes content(static_cast<std::size_t>(std::filesystem::file_size(path)));
  file.read(reinterpret_cast<char *>(content.data()), static_cast<std::streamsize>(content.size()));
  if (!file)
    ThrowSystemError(path);
  return content;
}

Bytes ToBytes(std::string_view text) { return {text.begin(), text.end()}; }

} // namespace turfdesk::samples
