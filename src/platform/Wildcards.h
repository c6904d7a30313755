// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string_view>

namespace turfdesk {

/// Does the whole text fit the pattern, in which * stands for any text and ? for one character? Both are UTF-8 and
/// compared exactly; fold them first where case does not count. Takes at most the product of the two lengths.
bool MatchesWildcard(std::string_view pattern, std::string_view text);

} // namespace turfdesk
