// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <string_view>

namespace turfdesk {

/// The text in the form that is equal for texts that differ only in case: Unicode case folding of composed (NFC) text.
/// Bytes that are no UTF-8 stay as they are.
std::string FoldCase(std::string_view text);

/// Do the two texts differ in nothing but case?
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

} // namespace turfdesk
