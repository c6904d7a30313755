// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

namespace turfdesk {

/// The command: asks about the selected course, whichever list commands act on, and throws its statistics away. True
/// when none are left.
bool ClearSelectedStatistics(SharedState &state);

} // namespace turfdesk
