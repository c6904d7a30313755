// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>

namespace turfdesk {

/// The folder of the system's own programs, in UTF-8 and without a backslash at its end. "" when it cannot be told.
std::string SystemFolder();

} // namespace turfdesk
