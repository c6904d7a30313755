// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

namespace turfdesk {

/// Creates the services. False means that one could not be created: the user has been told, an attempt to make them
/// available again has been made, and the program must end.
bool Init(SharedState &state);

/// Drops the services that Init created.
void ReleaseServices(SharedState &state);

} // namespace turfdesk
