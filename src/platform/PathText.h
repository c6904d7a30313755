// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace turfdesk {

// The parts of a Windows path, by its text alone. FileService.h tells what each of them is.

std::string_view PathPartOf(std::string_view path);
std::string_view FilePartOf(std::string_view path);
std::string_view DirPrefixOf(std::string_view path);
std::string_view BaseNameOf(std::string_view path);
std::string_view ExtensionOf(std::string_view path);

/// Does the text begin with the name of a protocol, as "https://host" does? One letter before the colon is a drive.
bool IsAddress(std::string_view text);

/// A full path without the beginning "\\?\" that programs which know of long paths may hand over or store.
std::string_view WithoutSystemBeginning(std::string_view path);

/// The one form of a full path, by drive or on a network: the drive's letter upper case, backslashes, no "." and "..",
/// no separator twice or at the end except that of a drive's root. The beginning that makes the system take a path as
/// it stands ("\\?\") goes. ".." is resolved by the text, as Windows does it, and ends at the root. Any other text is
/// given back as it is.
std::string CleanPath(std::string_view path);

/// The path that a file's address ("file:///home/x%20y", "file://localhost/C:/x") stands for, in the form of the system
/// that it was made on; the name of another computer makes a path on a network of it. Nothing for any other text.
std::optional<std::string> PathOfFileAddress(std::string_view text);

} // namespace turfdesk
