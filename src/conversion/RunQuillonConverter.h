// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

namespace turfdesk {

/// The command: starts the converter for courses of Quillon 2000, which has a window of its own, and leaves it to
/// itself. False after showing why it could not be started. Courses that it installs are seen at the next reload.
bool RunQuillonConverter(SharedState &state);

} // namespace turfdesk
