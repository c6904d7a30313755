// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

namespace turfdesk {

/// Throws away what the user has typed and clicked but no window has seen yet; everything else that is pending runs.
/// For the moment before a question appears: keys pressed while work was going on must not answer it.
void DiscardPendingInput();

} // namespace turfdesk
