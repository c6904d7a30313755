// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Terminal.h"

#include <unistd.h>

namespace turfdesk {

bool InputIsTerminal() { return isatty(STDIN_FILENO) != 0; }

bool OutputIsTerminal() { return isatty(STDOUT_FILENO) != 0; }

void MakeOutputBinary() {
  // Here it never is anything else.
}

void UseTerminalOfCaller() {
  // Here every program has it.
}

} // namespace turfdesk
