// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Processes.h"
#include "platform/windows/SystemHandle.h"

#include <map>
#include <vector>

namespace turfdesk {

/// A hidden program has no window, reads nothing and writes to standard error, since standard output may be the result
/// of this one. Any other program that needs a terminal gets one of its own.
class WindowsProcesses final : public Processes {
public:
  /// Where the system's words say more than those of the number (such as that the program asks for an administrator),
  /// the description has them.
  std::uint32_t Shell(std::string_view program, const std::vector<std::string> &arguments, WindowStyle style) override;
  ProcessHandle OpenProcess(std::uint32_t processId) override;
  void WaitForSingleObject(ProcessHandle handle, void (*repaint)(void *), void *context) override;
  void CloseHandle(ProcessHandle handle) override { mHandles.erase(handle); }
  /// The path itself on a disk that makes no short names.
  std::string GetShortPathName(std::string_view path) override;

private:
  void ForgetEnded();

  /// While one is held, its process id belongs to no other process.
  std::vector<SystemHandle> mStarted;
  std::map<ProcessHandle, SystemHandle> mHandles;
  ProcessHandle mLastHandle = 0;
};

} // namespace turfdesk
