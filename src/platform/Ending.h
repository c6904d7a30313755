// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

namespace turfdesk {

/// From here on the temporary folder goes also when the user or the system ends the process before its time (Ctrl-C, a
/// closed terminal, logging out), and what reads our output may go without ending us: to write to it fails
/// then. Called once by the entry point, before anything else.
void PrepareForEnding();

} // namespace turfdesk
