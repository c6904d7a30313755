// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace turfdesk {

/// UTF-16LE bytes as UTF-8; nothing when they are no text: half a character, or half of a surrogate pair.
std::optional<std::string> Utf8FromUtf16(std::string_view bytes);

/// UTF-8 as UTF-16LE bytes; nothing when the text is no UTF-8.
std::optional<std::string> Utf16FromUtf8(std::string_view text);

bool IsUtf8(std::string_view text);

} // namespace turfdesk
