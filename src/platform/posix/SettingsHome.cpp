// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SettingsHome.h"

#include "platform/RuntimeError.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace turfdesk {

namespace {

ErrorNumber NumberOf(int error) {
  switch (error) {
  case ENOSPC:
  case EDQUOT:
    return ErrorNumber::DiskFull;
  case EMFILE:
  case ENFILE:
    return ErrorNumber::TooManyFiles;
  default:
    return ErrorNumber::PathFileAccess;
  }
}

/// May somebody who only reads the settings do without the lock? There is no home, or nobody can write in it.
bool NeedsNoLock(int error) { return error == EACCES || error == EPERM || error == EROFS || error == ENOENT; }

[[noreturn]] void FailOn(const char *what, const std::string &path) {
  const int code = errno;
  if (NumberOf(code) == ErrorNumber::TooManyFiles)
    throw RuntimeError(ErrorNumber::TooManyFiles, "Too many files are open to use the settings: " + path);
  throw RuntimeError(NumberOf(code), std::string(what) + path + " (" + std::strerror(code) + ")");
}

void FlushFolder(const std::string &folder) {
  const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.IsOpen() || fsync(descriptor.Number()) != 0)
    FailOn("The settings folder cannot be written: ", folder);
}

std::string PresentTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[] = "yyyymmdd-hhmmss";
  std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &local);
  return text;
}

std::string UnusedName(const std::string &stem) {
  const std::string dated = stem + "-" + PresentTime();
  std::string name = dated + ".db";
  for (int number = 2; SizeOfFile(name) >= 0 || SizeOfFile(JournalOf(name)) >= 0; ++number)
    name = dated + "-" + std::to_string(number) + ".db";
  return name;
}

} // namespace

SettingsPaths::SettingsPaths(const std::string &homeFolder)
    : home(homeFolder), store(home + "/settings.db"), goodCopy(home + "/settings.good.db"),
      unfinished(home + "/settings.unfinished.db"), lock(home + "/settings.lock") {}

std::string JournalOf(const std::string &databaseFile) { return databaseFile + "-journal"; }

SettingsLock::SettingsLock(const SettingsPaths &paths, Mode mode, std::chrono::milliseconds patience)
    : mLockFile(open(paths.lock.c_str(), O_RDONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0600)) {
  const int error = errno;
  for (const std::string &path : {paths.lock, paths.store, JournalOf(paths.store)})
    CheckIsFile(path);
  if (!mLockFile.IsOpen()) {
    if (mode == Mode::Shared && NeedsNoLock(error))
      return;
    errno = error;
    FailOn("A lock of the settings cannot be made: ", paths.lock);
  }
  const int operation = (mode == Mode::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (flock(mLockFile.Number(), operation) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR)
      FailOn("The settings cannot be locked: ", paths.lock);
    if (std::chrono::steady_clock::now() >= deadline)
      throw RuntimeError(ErrorNumber::PermissionDenied, "The settings are in use by another program: " + paths.store);
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

void CheckIsFile(const std::string &path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
    throw RuntimeError(ErrorNumber::PathFileAccess,
                       "This is no file, but stands in the place of one of the settings: " + path);
}

void MakeHomeFolder(const SettingsPaths &paths) {
  if (mkdir(paths.home.c_str(), 0700) == 0 || errno == EEXIST)
    return;
  std::error_code failure;
  std::filesystem::create_directories(std::filesystem::path(paths.home).parent_path(), failure);
  if (mkdir(paths.home.c_str(), 0700) != 0 && errno != EEXIST)
    FailOn("The settings folder cannot be made: ", paths.home);
}

void CheckWritable(const SettingsPaths &paths) {
  for (const std::string &path : {paths.home, paths.store}) {
    struct stat status {};
    const bool isWritable = stat(path.c_str(), &status) != 0 || (status.st_mode & S_IWUSR) != 0;
    if (!isWritable || access(path.c_str(), W_OK) != 0)
      throw RuntimeError(ErrorNumber::PathFileAccess, "The settings file cannot be written: " + paths.store);
  }
}

std::int64_t SizeOfFile(const std::string &path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? static_cast<std::int64_t>(status.st_size) : -1;
}

Descriptor OpenForReading(const std::string &path) {
  // Not to wait for a writer, should the name be that of a pipe.
  return Descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

Descriptor OpenAfresh(const std::string &path) {
  Descriptor descriptor(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_CLOEXEC, 0600));
  const int error = errno;
  CheckIsFile(path);
  errno = error;
  if (!descriptor.IsOpen())
    FailOn("A settings file cannot be made: ", path);
  return descriptor;
}

void CopyFlushed(const Descriptor &source, const std::string &destination) {
  const Descriptor copy = OpenAfresh(destination);
  ssize_t length = 0;
  do {
    length = sendfile(copy.Number(), source.Number(), nullptr, std::size_t{1} << 30);
  } while (length > 0);
  if (length < 0 || fsync(copy.Number()) != 0)
    FailOn("The settings cannot be copied to ", destination);
}

void RenameDurably(const SettingsPaths &paths, const std::string &from, const std::string &to) {
  if (rename(from.c_str(), to.c_str()) != 0)
    FailOn("The settings file cannot be renamed: ", from);
  FlushFolder(paths.home);
}

std::string SetAside(const SettingsPaths &paths, const std::string &databaseFile, const std::string &stem) {
  std::string newName = UnusedName(paths.home + "/" + stem);
  // The journal goes first: SQLite would play one that stays behind into whatever file takes the name next. An empty
  // one says nothing.
  if (SizeOfFile(JournalOf(databaseFile)) > 0)
    RenameDurably(paths, JournalOf(databaseFile), JournalOf(newName));
  if (SizeOfFile(databaseFile) >= 0)
    RenameDurably(paths, databaseFile, newName);
  return newName;
}

} // namespace turfdesk
