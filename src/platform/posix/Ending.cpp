// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Ending.h"

#include "platform/posix/Leftovers.h"

#include <csignal>
#include <signal.h>

namespace turfdesk {

namespace {

constexpr int EndingSignals[] = {SIGHUP, SIGINT, SIGTERM};

/// Comes in between whatever the one thread does that writes files, so that nothing new appears behind its back. No
/// file is half written at any moment, so the work may end at any.
void End(int signal) {
  RemoveLeftovers();
  // What it does without a handler comes when this one returns, and tells whoever waits why the process has ended.
  raise(signal);
}

} // namespace

void PrepareForEnding() {
  std::signal(SIGPIPE, SIG_IGN);
  struct sigaction ending = {};
  ending.sa_handler = &End;
  ending.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : EndingSignals)
    sigaddset(&ending.sa_mask, signal);
  for (const int signal : EndingSignals) {
    struct sigaction before = {};
    // Who started the program may have it go on (nohup).
    if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
      sigaction(signal, &ending, nullptr);
  }
}

} // namespace turfdesk
