// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

namespace turfdesk {

/// Announces the program's three file types to the platform. A failure is told in plain boxes and stops nothing.
void RegisterFileTypes(SharedState &state);

} // namespace turfdesk
