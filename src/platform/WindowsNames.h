// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string_view>

namespace turfdesk {

/// The longest name of a file or folder, in bytes.
inline constexpr std::size_t LongestName = 255;

/// A backslash, or the slash that Windows takes for one.
constexpr bool IsSeparator(char c) { return c == '\\' || c == '/'; }

/// Does the path begin with a drive and end there or go on at its root ("C:", "C:\Games", "c:/Games")?
bool IsFullWindowsPath(std::string_view path);

/// Does the path begin with the name of a computer on the network, as "\\server\share\x" does?
bool IsNetworkPath(std::string_view path);

/// Can a file or folder on Windows have this name? It is UTF-8 of 1 to 255 bytes without any of <>:"/\|?* and control
/// characters, does not end in a blank or dot, and is no device name.
bool IsWindowsName(std::string_view name);

/// The same but for the length. On Windows itself the longest name is counted otherwise than here: in UTF-16 units.
bool IsWindowsNameOfAnyLength(std::string_view name);

} // namespace turfdesk
