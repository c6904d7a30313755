// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

namespace turfdesk {

// Each rebuilds the rows of one list from the catalogue. The list that the commands act on has its first row selected
// afterwards, the other one none. An error is shown and ends the load; rows filled so far stay.
void LoadCourses(SharedState &state);
void LoadLibraries(SharedState &state);

} // namespace turfdesk
