// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <span>

namespace turfdesk::fuzz {

/// Bytes that the extraction is told are free.
inline constexpr std::uint64_t Room = std::uint64_t{16} << 20;

/// Lists and extracts the archive. Whatever it is, the statuses are those of docs/zip-status.md, the listing gives the
/// names of the files that appear, and nothing else appears anywhere.
void ExamineArchive(std::span<const std::uint8_t> archive);

} // namespace turfdesk::fuzz
