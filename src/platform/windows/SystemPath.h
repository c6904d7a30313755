// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace turfdesk {

// A system path is what the wide functions are called with: "\\?\C:\Games\x.hlc" or "\\?\UNC\server\share\x.hlc". It
// may be longer than 260 characters, and the system takes its names as they stand. Otherwise it would drop blanks and
// dots at the end of a name, and take "nul.txt" for a device.

/// The system path of a full Windows path in UTF-8, with either kind of separator; "." and ".." are resolved by the
/// text, and ".." ends at the root. Gives 0, ERROR_PATH_NOT_FOUND when the text is no full path, or the system's number
/// for a name that no file can have.
std::uint32_t ToSystemPath(std::string_view path, std::wstring &systemPath);

/// Is it the root of a drive or of a share on the network?
bool IsRoot(std::wstring_view systemPath);

/// The path as people and other programs write it.
std::wstring PlainPath(std::wstring_view systemPath);

/// The full path, in UTF-8, of one that a user gave: relative to the current folder ("x", "..\x"), to that of a drive
/// ("C:x") or to the current drive ("\x"), or by a file's address. It is clean, see CleanPath. "" for "" and when no
/// file can have it.
std::string FullPath(std::string_view given);

/// The system tells a missing drive, or one without a medium, often as a missing file. Gives ERROR_INVALID_DRIVE or
/// ERROR_NOT_READY where that is the reason, else the error that it was given.
std::uint32_t WhatIsMissing(std::uint32_t error, const std::wstring &systemPath);

} // namespace turfdesk
