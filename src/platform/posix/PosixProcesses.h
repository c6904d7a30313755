// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Processes.h"
#include "platform/posix/ChildProcesses.h"
#include "platform/posix/PathMap.h"

#include <map>

namespace turfdesk {

/// Programs of the host, and with the help of Wine those of Windows. A window style means nothing here.
class PosixProcesses final : public Processes {
public:
  PosixProcesses(const PathMap &paths, ChildProcesses &children) : mPaths(paths), mChildren(children) {}

  std::uint32_t Shell(std::string_view program, const std::vector<std::string> &arguments, WindowStyle style) override;
  ProcessHandle OpenProcess(std::uint32_t processId) override;
  void WaitForSingleObject(ProcessHandle handle, void (*repaint)(void *), void *context) override;
  void CloseHandle(ProcessHandle handle) override { mHandles.erase(handle); }
  std::string GetShortPathName(std::string_view path) override;

private:
  /// Gives 0 or the system's number of the failure. Throws RuntimeError 75 where nothing here runs such programs.
  int StartWindowsProgram(const std::vector<std::string> &commandLine, ChildProcesses::Output output, pid_t &process);

  const PathMap &mPaths;
  ChildProcesses &mChildren;
  std::map<ProcessHandle, Descriptor> mHandles;
};

} // namespace turfdesk
