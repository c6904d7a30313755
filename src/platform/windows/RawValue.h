// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace turfdesk {

/// A text with variables of the environment.
inline constexpr std::uint32_t RegExpandSz = 2;

/// A value as the registry keeps it. Texts are UTF-16 in its bytes.
struct RawValue {
  std::wstring name;
  std::uint32_t type = RegSz;
  std::string bytes;
};

/// The text of a value in UTF-8. It ends at its first NUL, as it does for the other programs that read it; one that
/// was written without a NUL, or with half a character at its end, ends where its characters do.
std::string TextOf(const RawValue &value);

/// TextOf for a text in which %NAME% stands for a variable of the environment.
std::string ExpandedTextOf(const RawValue &value);

/// The bytes of a text with its terminating NUL.
std::string BytesOfText(std::string_view utf8);

/// The number that the first four bytes stand for, little-endian; bytes that are missing count as 0.
std::int32_t NumberOf(const RawValue &value);

std::string BytesOfNumber(std::int32_t number);

} // namespace turfdesk
