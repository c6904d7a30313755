// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>

namespace turfdesk::test {

/// Throws std::runtime_error unless this is Wine and the environment says, by TURFDESK_SCRATCH_PREFIX, that its prefix
/// holds nothing anybody would miss. Called before anything of a system is deleted: a test that is started by hand must
/// not take a person's catalogue and files away.
void RequireScratchSystem();

/// The path by which a folder of drive C: is found on drive Z:, which shows the whole disk of Wine's host.
std::string OnWholeDisk(const std::string &folder);

/// Deletes the settings of the game and of the tests, and all of drive C: that the system itself has not made.
void EmptyScratchSystem();

} // namespace turfdesk::test
