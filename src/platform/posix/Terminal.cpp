// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Terminal.h"

#include <unistd.h>

namespace turfdesk {

bool InputIsTerminal() { return isatty(STDIN_FILENO) != 0; }

} // namespace turfdesk
