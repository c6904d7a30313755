// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/windows/SystemHandle.h"

#include <cstdint>
#include <string_view>

namespace turfdesk {

/// What the disk tells of a file or folder; of a link, of what it leads to.
struct FileFacts {
  bool isFolder = false;
  bool isReadOnly = false;
  std::uint64_t size = 0;
  /// When the content was last changed, in units of 100 ns since 1601, as the system counts.
  std::uint64_t modified = 0;
  std::uint32_t volume = 0;
  std::uint64_t index = 0;

  bool IsSameFile(const FileFacts &other) const { return volume == other.volume && index == other.index; }
};

/// Each gives 0 or the system's number of the failure.
std::uint32_t LookAt(std::string_view path, FileFacts &facts);
std::uint32_t LookAtOpen(const SystemHandle &file, FileFacts &facts);

inline constexpr std::uint64_t TicksPerSecond = 10'000'000;
/// Seconds from the beginning of the system's count to 1970.
inline constexpr std::int64_t SecondsTo1970 = 11'644'473'600;

} // namespace turfdesk
