// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

enum class WindowStyle { Hidden = 0, NormalFocus = 1 };

/// A handle of a started process. 0 is none.
using ProcessHandle = std::uint64_t;

/// Starting external programs and waiting for them.
class Processes {
public:
  Processes() = default;
  Processes(const Processes &) = delete;
  Processes &operator=(const Processes &) = delete;
  virtual ~Processes() = default;

  /// Starts the program at a Windows path with arguments, each handed over as one argument. Gives its process id.
  /// Throws RuntimeError 53 when the program is missing, 76 when its folder is, 75 or 70 when it cannot be started.
  /// When the system lacks something that the program needs, the description says what.
  virtual std::uint32_t Shell(std::string_view program, const std::vector<std::string> &arguments,
                              WindowStyle style) = 0;
  /// A handle to wait on, or 0 on failure.
  virtual ProcessHandle OpenProcess(std::uint32_t processId) = 0;
  /// Returns when the process has ended; repaint is called every so often meanwhile.
  virtual void WaitForSingleObject(ProcessHandle handle, void (*repaint)(void *), void *context) = 0;
  virtual void CloseHandle(ProcessHandle handle) = 0;
  /// The form of an existing path that an external program understands best: the short path where the system has
  /// such, else the path itself in the host's form. "" on failure.
  virtual std::string GetShortPathName(std::string_view path) = 0;
};

} // namespace turfdesk
