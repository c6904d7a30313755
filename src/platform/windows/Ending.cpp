// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Ending.h"

#include "platform/windows/EndingGate.h"
#include "platform/windows/TempFolder.h"

#include <windows.h>

#include <atomic>

namespace turfdesk {

namespace {

std::atomic<bool> isEnding = false;

/// Called by the system in a thread of its own, while the work goes on: with the file at hand, and no further one.
BOOL WINAPI End(DWORD /*event*/) {
  isEnding = true;
  // As long as the system waits for a program whose console is closed.
  constexpr DWORD longest = 5000;
  constexpr DWORD pause = 20;
  for (DWORD waited = 0; !RemoveTempFolders() && waited < longest; waited += pause)
    Sleep(pause);
  // What the system does without us: it ends the process.
  return FALSE;
}

} // namespace

void PrepareForEnding() { SetConsoleCtrlHandler(&End, TRUE); }

void StopIfEnding() {
  while (isEnding)
    Sleep(INFINITE);
}

} // namespace turfdesk
