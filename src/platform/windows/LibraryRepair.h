// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/MessageBoxes.h"
#include "platform/Processes.h"

namespace turfdesk {

/// Registers the two libraries that the game's settings give the folder of, which is shown in a plain box first. The
/// programs that do it are started hidden and are not waited for. When there is no folder to be read, or a program does
/// not start, one plain box says so instead. Never throws.
void RegisterLibraries(Processes &programs, MessageBoxes &boxes);

} // namespace turfdesk
