// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <cstdint>

namespace turfdesk {

// Each rebuilds the rows of one list from the catalogue. The list that the commands act on has its first row selected
// afterwards, the other one none. An error is shown and ends the load; rows made so far stay.
void LoadCourses(SharedState &state);
void LoadLibraries(SharedState &state);

/// Every command that needs a row asks this first. which is a value of ActiveList; an empty list is told to the user
/// and gives false.
bool ListHasItems(SharedState &state, std::int32_t which);

/// Makes a list the one that the commands act on, and takes the selection away from the other.
void ActivateList(SharedState &state, std::int32_t which);

} // namespace turfdesk
