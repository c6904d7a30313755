// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace turfdesk {

struct FolderEntry {
  std::wstring name;
  /// The flags of the system: FILE_ATTRIBUTE_DIRECTORY and so on; of a link, its own.
  std::uint32_t attributes = 0;
  /// When the content was last changed, in units of 100 ns since 1601.
  std::uint64_t modified = 0;
};

/// Calls a routine with each entry of a folder (a system path), but for "." and "..". Gives 0, or the system's number
/// of what kept the folder from being read to its end.
std::uint32_t ForEachEntry(const std::wstring &folder, const std::function<void(const FolderEntry &)> &call);

/// Can the folder be listed? Gives 0 or the system's number of what is in the way.
std::uint32_t CheckReadable(const std::wstring &folder);

/// The name as the disk has it of what a system path leads to; of a root, or where there is nothing, "".
std::wstring NameOnDisk(const std::wstring &systemPath);

/// The path of an entry of a folder, which may be a root: that ends in a separator already, and the system does not
/// take two in a system path.
std::wstring EntryPath(const std::wstring &folder, const std::wstring &name);

} // namespace turfdesk
