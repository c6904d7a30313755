// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Child.h"

#include "Measure.h"

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace turfdesk::bench {

namespace {

std::string Joined(const std::vector<std::string> &command) {
  std::string text;
  for (const std::string &word : command)
    text += (text.empty() ? "" : " ") + word;
  return text;
}

} // namespace

pid_t StartChild(const std::vector<std::string> &command) {
  std::vector<char *> words;
  words.reserve(command.size() + 1);
  for (const std::string &word : command)
    words.push_back(const_cast<char *>(word.c_str())); // posix_spawn leaves them as they are
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int error = posix_spawnp(&child, words[0], &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0)
    throw std::runtime_error(Joined(command) + ": " + std::strerror(error));
  return child;
}

double RunChild(const std::vector<std::string> &command) {
  return Seconds([&] {
    const pid_t child = StartChild(command);
    int status = 0;
    if (waitpid(child, &status, 0) != child || status != 0)
      throw std::runtime_error(Joined(command) + ": failed");
  });
}

// A process inherits the peak of the one that starts it, so a small program has to stand between this one and the one
// to be measured.
double PeakBytesOfChild(std::vector<std::string> command, const std::filesystem::path &note) {
  command.insert(command.begin(), {"/usr/bin/time", "--format=%M", "--output=" + note.string()});
  RunChild(command);
  double kibibytes = 0;
  if (!(std::ifstream(note) >> kibibytes))
    throw std::runtime_error(Joined(command) + ": no measurement");
  return kibibytes * 1024;
}

void EndChild(pid_t child) {
  kill(child, SIGTERM);
  waitpid(child, nullptr, 0);
}

std::string SiblingProgram(const std::string &name) {
  return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / name).string();
}

void SettleDisk() { sync(); }

} // namespace turfdesk::bench
