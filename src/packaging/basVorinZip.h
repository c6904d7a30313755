// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <string>

namespace turfdesk {

/// The line that tells a user of a status of the zip layer, such as "Error 150:  Disk full."; "" for 0. A code that has
/// no words gives the prefix alone.
std::string GetZipStatusText(std::int16_t code);

} // namespace turfdesk
