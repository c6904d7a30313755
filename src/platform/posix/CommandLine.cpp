// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/CommandLine.h"

namespace turfdesk {

std::vector<std::string> CommandArguments(int argc, char **argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void UseUtf8Terminal() {
  // Here the terminal's encoding is the user's choice, and UTF-8 nearly everywhere.
}

} // namespace turfdesk
