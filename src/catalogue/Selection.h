// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "support/SharedState.h"

#include <cstdint>

namespace turfdesk {

// which is a value of ActiveList.

/// Every command that needs a row asks this first. An empty list is told to the user and gives false.
bool ListHasItems(SharedState &state, std::int32_t which);

/// The row that a command acts on. Null when the list is empty or nothing in it is selected; the user has then been
/// told.
Row *SelectedRow(SharedState &state, std::int32_t which);

/// Makes a list the one that the commands act on, and takes the selection away from the other.
void ActivateList(SharedState &state, std::int32_t which);

} // namespace turfdesk
