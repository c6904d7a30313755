// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <vector>

namespace turfdesk {

/// The arguments that the program was started with, without its own name, in UTF-8. Takes what main was given, which
/// not every system hands over without loss.
std::vector<std::string> CommandArguments(int argc, char **argv);

/// From here on the terminal takes what is written for UTF-8. Called once by a program that speaks to a terminal.
void UseUtf8Terminal();

} // namespace turfdesk
