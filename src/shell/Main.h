// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string_view>

namespace turfdesk {

/// The start of the program, before any window exists: creates the services and fills the shared state. commandTail is
/// all that stood behind the program's name: one file path as a whole, in double quotes or not, or "". False means
/// that the program must end at once.
bool Main(SharedState &state, std::string_view commandTail);

} // namespace turfdesk
