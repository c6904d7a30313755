// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "../BranchText.h"
#include "common/WorldHome.h"
#include "platform/posix/SettingsHome.h"
#include "platform/posix/SqliteConnection.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

namespace turfdesk::test {

/// A home folder that lasts as long as the object. The folder itself is left to be made by whoever uses it.
class TemporaryHome {
public:
  std::string Path() const { return (mFolder.Path() / "home").string(); }
  SettingsPaths Paths() const { return SettingsPaths(Path()); }

private:
  TempFolder mFolder;
};

inline std::string ContentOf(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Somebody who has done this to the database and holds what it locks for as long as the object lives.
inline SqliteConnection RunSql(const std::string &path, const char *sql = "BEGIN EXCLUSIVE") {
  SqliteConnection connection(path, std::chrono::milliseconds(0));
  connection.Execute(sql);
  return connection;
}

/// What routine(number) gives in each of three processes that run it at once; 255 for one that failed.
template <class Routine> std::array<int, 3> RunAtOnce(Routine routine) {
  std::array<pid_t, 3> processes{};
  for (std::size_t i = 0; i < processes.size(); ++i) {
    processes[i] = fork();
    if (processes[i] == 0)
      _exit(routine(static_cast<int>(i)));
  }
  std::array<int, 3> results{};
  for (std::size_t i = 0; i < processes.size(); ++i) {
    int status = 0;
    const bool ended = waitpid(processes[i], &status, 0) == processes[i] && WIFEXITED(status);
    results[i] = ended ? WEXITSTATUS(status) : 255;
  }
  return results;
}

} // namespace turfdesk::test
