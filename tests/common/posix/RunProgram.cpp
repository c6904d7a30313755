// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/RunProgram.h"

#include "common/WorldHome.h"
#include "samples/Basics.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace turfdesk::test {

namespace {

pid_t Start(const std::vector<std::string> &commandLine, const TempFolder &streams) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  const auto redirect = [&](int number, const char *name, int flags) {
    posix_spawn_file_actions_addopen(&actions, number, (streams.Path() / name).c_str(), flags, 0600);
  };
  redirect(STDIN_FILENO, "input", O_RDONLY);
  redirect(STDOUT_FILENO, "output", O_WRONLY | O_CREAT);
  redirect(STDERR_FILENO, "errors", O_WRONLY | O_CREAT);
  std::vector<char *> words;
  words.reserve(commandLine.size() + 1);
  for (const std::string &argument : commandLine)
    words.push_back(const_cast<char *>(argument.c_str()));
  words.push_back(nullptr);
  pid_t process = 0;
  const int error = posix_spawn(&process, words[0], &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0)
    throw std::runtime_error("cannot start " + commandLine[0]);
  return process;
}

std::string ContentOf(const std::filesystem::path &file) {
  const samples::Bytes content = samples::ReadFile(file);
  return {content.begin(), content.end()};
}

} // namespace

ProgramRun RunProgram(const std::filesystem::path &program, const std::vector<std::string> &arguments,
                      const std::string &input) {
  const TempFolder streams;
  samples::WriteFile(streams.Path() / "input", samples::ToBytes(input));
  std::vector<std::string> commandLine = {program.string()};
  commandLine.insert(commandLine.end(), arguments.begin(), arguments.end());
  int status = 0;
  waitpid(Start(commandLine, streams), &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ContentOf(streams.Path() / "output"),
          ContentOf(streams.Path() / "errors")};
}

} // namespace turfdesk::test
