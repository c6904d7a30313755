// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PosixProcesses.h"

#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

namespace turfdesk {

namespace {

constexpr std::chrono::milliseconds RepaintInterval{50};

/// The host path of a program's file. Throws RuntimeError when there is none.
std::string ProgramFile(const PathMap &paths, std::string_view program) {
  std::string hostPath;
  if (const int error = paths.HostForm(program, hostPath); error != 0)
    ThrowSystemError(error);
  struct stat status;
  if (stat(hostPath.c_str(), &status) != 0)
    ThrowSystemError(errno);
  if (!S_ISREG(status.st_mode))
    ThrowSystemError(EACCES);
  return hostPath;
}

/// By its first bytes: a program of the host may bear any name.
bool IsWindowsProgram(const std::string &hostPath) {
  const Descriptor file(open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  char start[2] = {};
  return read(file.Number(), start, sizeof(start)) == sizeof(start) && start[0] == 'M' && start[1] == 'Z';
}

/// Wine shows the whole disk as Z:, and a Windows program takes an argument that begins with a slash for an option.
std::string ArgumentForWine(std::string argument) {
  if (!argument.starts_with('/'))
    return argument;
  std::replace(argument.begin(), argument.end(), '/', '\\');
  return "Z:" + argument;
}

} // namespace

int PosixProcesses::StartWindowsProgram(const std::vector<std::string> &commandLine, ChildProcesses::Output output,
                                        pid_t &process) {
  std::vector<std::string> throughWine = {"wine", commandLine[0]};
  std::transform(commandLine.begin() + 1, commandLine.end(), std::back_inserter(throughWine), ArgumentForWine);
  if (const int error = mChildren.Start(throughWine, output, process); error != ENOENT)
    return error;
  // Without Wine the system may still know what to do with such a program.
  if (mChildren.Start(commandLine, output, process) == 0)
    return 0;
  throw RuntimeError(ErrorNumber::PathFileAccess,
                     "This is a program for Windows. It needs Wine, which is not installed.");
}

std::uint32_t PosixProcesses::Shell(std::string_view program, const std::vector<std::string> &arguments,
                                    WindowStyle style) {
  std::vector<std::string> commandLine = {ProgramFile(mPaths, program)};
  commandLine.insert(commandLine.end(), arguments.begin(), arguments.end());
  pid_t process = 0;
  // A program with a window of its own stays when this one has ended.
  const auto output =
      style == WindowStyle::Hidden ? ChildProcesses::Output::StandardError : ChildProcesses::Output::Nowhere;
  const int error = IsWindowsProgram(commandLine[0]) ? StartWindowsProgram(commandLine, output, process)
                                                     : mChildren.Start(commandLine, output, process);
  if (error != 0)
    ThrowSystemError(error);
  return static_cast<std::uint32_t>(process);
}

ProcessHandle PosixProcesses::OpenProcess(std::uint32_t processId) {
  Descriptor process = OpenProcessHandle(static_cast<pid_t>(processId));
  if (!process.IsOpen())
    return 0;
  // 0 is a descriptor, but no handle.
  const auto handle = static_cast<ProcessHandle>(process.Number()) + 1;
  mHandles.insert_or_assign(handle, std::move(process));
  return handle;
}

void PosixProcesses::WaitForSingleObject(ProcessHandle handle, void (*repaint)(void *), void *context) {
  const auto process = mHandles.find(handle);
  if (process == mHandles.end())
    return;
  while (!WaitForEnd(process->second, RepaintInterval))
    if (repaint != nullptr)
      repaint(context);
}

std::string PosixProcesses::GetShortPathName(std::string_view path) {
  std::string hostPath;
  return mPaths.HostForm(path, hostPath) == 0 ? hostPath : "";
}

} // namespace turfdesk
