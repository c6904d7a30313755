// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryBranches.h"
#include "platform/posix/SettingsHome.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace turfdesk {

/// A home folder that lasts as long as the object. The folder itself is left to be made by whoever uses it.
class TemporaryHome {
public:
  TemporaryHome() {
    std::string folder = (std::filesystem::temp_directory_path() / "settings-XXXXXX").string();
    mFolder = mkdtemp(folder.data());
  }
  TemporaryHome(const TemporaryHome &) = delete;
  TemporaryHome &operator=(const TemporaryHome &) = delete;
  ~TemporaryHome() {
    if (std::filesystem::exists(Path()))
      std::filesystem::permissions(Path(), std::filesystem::perms::owner_all);
    std::filesystem::remove_all(mFolder);
  }

  std::string Path() const { return (mFolder / "home").string(); }
  SettingsPaths Paths() const { return SettingsPaths(Path()); }

private:
  std::filesystem::path mFolder;
};

inline RegistryChange SetText(const std::string &keyPath, const std::string &valueName, const std::string &text) {
  return {RegistryChange::Kind::SetValue, RegistryRoot::LocalMachine, keyPath, valueName, {RegSz, 0, text}};
}

inline RegistryChange SetNumber(const std::string &keyPath, const std::string &valueName, int number) {
  return {RegistryChange::Kind::SetValue, RegistryRoot::LocalMachine, keyPath, valueName, {RegDword, number, ""}};
}

inline std::string ContentOf(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void RunSql(const std::string &path, const std::string &sql) {
  sqlite3 *database = nullptr;
  EXPECT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
  sqlite3_close(database);
}

/// Another program, which runs work and then stays until it is killed.
class OtherProgram {
public:
  /// Returns at once.
  explicit OtherProgram(const std::function<void()> &work) : mProcess(fork()) {
    if (mProcess != 0)
      return;
    work();
    for (;;)
      pause();
  }
  OtherProgram(const OtherProgram &) = delete;
  OtherProgram &operator=(const OtherProgram &) = delete;
  ~OtherProgram() { Kill(); }

  void Kill() {
    if (mProcess > 0) {
      kill(mProcess, SIGKILL);
      waitpid(mProcess, nullptr, 0);
    }
    mProcess = -1;
  }

private:
  pid_t mProcess;
};

/// Another program in the middle of a transaction.
class LockingProgram {
public:
  /// Returns when sql has run. The transaction is committed after the given time, or never when that is 0.
  explicit LockingProgram(const std::string &storePath, const char *sql = "BEGIN EXCLUSIVE", useconds_t commitAfter = 0)
      : mReady(MakePipe()), mProgram([&] { Hold(storePath, sql, commitAfter); }) {
    char byte = 0;
    EXPECT_EQ(read(mReady[0], &byte, 1), 1);
  }
  LockingProgram(const LockingProgram &) = delete;
  LockingProgram &operator=(const LockingProgram &) = delete;
  ~LockingProgram() {
    close(mReady[0]);
    close(mReady[1]);
  }

private:
  static std::array<int, 2> MakePipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    return ends;
  }
  void Hold(const std::string &storePath, const char *sql, useconds_t commitAfter) {
    sqlite3 *database = nullptr;
    sqlite3_open(storePath.c_str(), &database);
    if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK || write(mReady[1], "x", 1) != 1)
      abort();
    if (commitAfter == 0)
      return;
    usleep(commitAfter);
    sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
  }

  std::array<int, 2> mReady;
  OtherProgram mProgram;
};

} // namespace turfdesk
