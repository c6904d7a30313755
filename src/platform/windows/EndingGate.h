// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

namespace turfdesk {

/// To be called before a new file is made: does not return once the console has told the process to end, so that
/// nothing appears behind the back of who is cleaning up.
void StopIfEnding();

} // namespace turfdesk
