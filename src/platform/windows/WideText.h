// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <string_view>

namespace turfdesk {

/// UTF-8 as the UTF-16 that the system takes. What is no UTF-8 becomes U+FFFD.
std::wstring ToWide(std::string_view utf8);

/// UTF-16 of the system as UTF-8. A half of a surrogate pair becomes U+FFFD.
std::string ToUtf8(std::wstring_view wide);

} // namespace turfdesk
