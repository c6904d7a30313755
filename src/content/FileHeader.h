// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>

/// Sizes in bytes of the fields that the headers of course and library files are made of. The meaning of the reserved
/// ones is the game's own business.
namespace turfdesk::header {

// Both kinds of file begin with version (2), GUID (16), reserved (4) and name (40).
inline constexpr std::int32_t IdentityReserved = 4;
inline constexpr std::int32_t NameLength = 40;

// A course goes on with reserved (32), number of libraries (2), reserved (160), offset of the names (4), reserved (8)
// and the GUIDs of the libraries.
inline constexpr std::int32_t BeforeLibraryCount = 32;
inline constexpr std::int32_t BeforeNamesOffset = 160;
inline constexpr std::int32_t BeforeGuids = 8;
inline constexpr std::int32_t GuidsOffset = 268;
inline constexpr std::int32_t GuidLength = 16;

} // namespace turfdesk::header
