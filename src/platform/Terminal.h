// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

namespace turfdesk {

/// Is standard input a terminal, at which somebody can answer a question?
bool InputIsTerminal();

/// Is standard output a terminal, at which somebody reads?
bool OutputIsTerminal();

/// From here on standard output takes bytes as they are, also where the system would change line breaks in them.
void MakeOutputBinary();

/// From here on standard output reaches the terminal that the program was started at, also where the system gives none
/// to a program with windows. What standard output was sent to otherwise stays.
void UseTerminalOfCaller();

} // namespace turfdesk
