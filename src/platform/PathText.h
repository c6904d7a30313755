// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

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

} // namespace turfdesk
