// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/posix/Descriptor.h"

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace turfdesk {

/// A handle of a process of the host, also after its end; not open when there is no such process.
Descriptor OpenProcessHandle(pid_t process);

/// Waits until the process has ended, at the most for the time given. False when it is still running.
bool WaitForEnd(const Descriptor &process, std::chrono::milliseconds atMost);

/// The programs that this one has started. Those that have ended are cleared away at the next start.
class ChildProcesses {
public:
  ChildProcesses() = default;
  ChildProcesses(const ChildProcesses &) = delete;
  ChildProcesses &operator=(const ChildProcesses &) = delete;
  ~ChildProcesses() { ClearEnded(); }

  /// Where a started program writes. Standard output may be this program's own result, and whoever waits for the end of
  /// standard error would wait for a program that stays, too.
  enum class Output { StandardError, Nowhere };

  /// Starts a program of the host: the first text, looked for in $PATH when it has no slash, with the others as its
  /// arguments. It reads nothing. Gives 0 or the system's number of the failure.
  int Start(const std::vector<std::string> &commandLine, Output output, pid_t &process);

  /// The exit status of a started program that has ended; -1 when it was ended by force or is unknown.
  int ExitStatus(pid_t process);

private:
  void ClearEnded();

  std::vector<pid_t> mRunning;
};

} // namespace turfdesk
