// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/ChildProcesses.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace turfdesk {

namespace {

/// How a started program differs from a plain copy of this one.
class SpawnSettings {
public:
  explicit SpawnSettings(ChildProcesses::Output output) {
    posix_spawn_file_actions_init(&mFiles);
    posix_spawn_file_actions_addopen(&mFiles, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    if (output == ChildProcesses::Output::Nowhere)
      posix_spawn_file_actions_addopen(&mFiles, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&mFiles, STDERR_FILENO, STDOUT_FILENO);
    posix_spawnattr_init(&mAttributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&mAttributes, &none);
    sigset_t ignoredHere;
    sigemptyset(&ignoredHere);
    sigaddset(&ignoredHere, SIGPIPE);
    sigaddset(&ignoredHere, SIGXFSZ);
    posix_spawnattr_setsigdefault(&mAttributes, &ignoredHere);
    posix_spawnattr_setflags(&mAttributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  SpawnSettings(const SpawnSettings &) = delete;
  SpawnSettings &operator=(const SpawnSettings &) = delete;
  ~SpawnSettings() {
    posix_spawnattr_destroy(&mAttributes);
    posix_spawn_file_actions_destroy(&mFiles);
  }

  const posix_spawn_file_actions_t *Files() const { return &mFiles; }
  const posix_spawnattr_t *Attributes() const { return &mAttributes; }

private:
  posix_spawn_file_actions_t mFiles;
  posix_spawnattr_t mAttributes;
};

} // namespace

Descriptor OpenProcessHandle(pid_t process) {
  // Called by number: not every C library declares it for C++.
  return Descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
}

bool WaitForEnd(const Descriptor &process, std::chrono::milliseconds atMost) {
  pollfd ended = {process.Number(), POLLIN, 0};
  return poll(&ended, 1, static_cast<int>(atMost.count())) > 0;
}

int ChildProcesses::Start(const std::vector<std::string> &commandLine, Output output, pid_t &process) {
  ClearEnded();
  // One more than there are: the list ends with a null.
  std::vector<char *> arguments(commandLine.size() + 1);
  std::transform(commandLine.begin(), commandLine.end(), arguments.begin(),
                 [](const std::string &argument) { return const_cast<char *>(argument.c_str()); });
  const SpawnSettings settings(output);
  const int error =
      posix_spawnp(&process, arguments[0], settings.Files(), settings.Attributes(), arguments.data(), environ);
  if (error == 0)
    mRunning.push_back(process);
  return error;
}

int ChildProcesses::ExitStatus(pid_t process) {
  int status = 0;
  if (waitpid(process, &status, WNOHANG) != process)
    return -1;
  std::erase(mRunning, process);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void ChildProcesses::ClearEnded() {
  std::erase_if(mRunning, [](pid_t process) { return waitpid(process, nullptr, WNOHANG) != 0; });
}

} // namespace turfdesk
