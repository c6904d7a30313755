// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Terminal.h"

#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>

namespace turfdesk {

namespace {

// The runtime's own question takes NUL for a terminal, too.
bool IsConsole(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

} // namespace

bool InputIsTerminal() { return IsConsole(STD_INPUT_HANDLE); }

bool OutputIsTerminal() { return IsConsole(STD_OUTPUT_HANDLE); }

void MakeOutputBinary() {
  std::fflush(stdout);
  _setmode(_fileno(stdout), _O_BINARY);
}

void UseTerminalOfCaller() {
  const bool isSentSomewhere = GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) != FILE_TYPE_UNKNOWN;
  if (!isSentSomewhere && AttachConsole(ATTACH_PARENT_PROCESS) != 0)
    static_cast<void>(std::freopen("CONOUT$", "w", stdout));
}

} // namespace turfdesk
