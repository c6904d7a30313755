// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace turfdesk::bench {

/// Runs a program, drops its output and gives the seconds that it took. Throws std::runtime_error with the whole
/// command when it cannot be started or ends with a status other than 0.
double RunChild(const std::vector<std::string> &command);

/// Runs a program likewise and gives the most bytes of memory that it had resident. note is a file to use meanwhile.
double PeakBytesOfChild(std::vector<std::string> command, const std::filesystem::path &note);

/// Starts a program and gives its process id. Throws as RunChild does.
pid_t StartChild(const std::vector<std::string> &command);
/// Ends it and waits for it.
void EndChild(pid_t child);

/// A program of the build that this one belongs to.
std::string SiblingProgram(const std::string &name);

/// Waits until everything written so far, by whomever, is on disk: what one measurement leaves to be written must not
/// slow down the next.
void SettleDisk();

} // namespace turfdesk::bench
