// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Header.h"

#include "samples/Basics.h"

#include <algorithm>

namespace turfdesk::fuzz {

std::int16_t WordAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return static_cast<std::int16_t>(bytes[offset] + 256 * bytes[offset + 1]);
}

std::string KeyAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  samples::Guid guid{};
  std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(offset), guid.size(), guid.begin());
  return samples::KeyOf(guid);
}

bool IsTextOf(const std::string &text, std::span<const std::uint8_t> bytes) {
  std::string raw(bytes.begin(), bytes.end());
  std::erase(raw, '\0');
  return samples::ToWindows1252(text) == raw;
}

} // namespace turfdesk::fuzz
