// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/HomeFolder.h"

#include "platform/posix/HostPaths.h"
#include "platform/posix/PathMap.h"
#include "platform/posix/SystemError.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace turfdesk {

namespace {

constexpr mode_t PrivateMode = 0700;

constexpr const char *DrivesUnusable = "The folder of the drives cannot be used.";

std::string_view Environment(const char *name) {
  const char *value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string UserFolder() {
  if (const std::string_view folder = Environment("HOME"); !folder.empty())
    return std::string(folder);
  const passwd *user = getpwuid(getuid());
  return user == nullptr ? "/" : user->pw_dir;
}

int MakeLinks(const std::string &home, const std::string &folder) {
  const int error = MakeFolders(home + "/drive_c", PrivateMode);
  if (error != 0)
    return error;
  const bool made = symlink("../drive_c", (folder + "/c:").c_str()) == 0 && symlink("/", (folder + "/z:").c_str()) == 0;
  return made ? 0 : errno;
}

/// Puts the links together under another name first: a folder of drives that lacks one would be taken for the user's
/// wish ever after.
int MakeDrives(const std::string &home, const std::string &drives) {
  std::string draft = drives + ".XXXXXX";
  if (mkdtemp(draft.data()) == nullptr)
    return errno;
  int error = MakeLinks(home, draft);
  if (error == 0 && rename(draft.c_str(), drives.c_str()) == 0)
    return 0;
  if (error == 0)
    error = errno;
  unlink((draft + "/c:").c_str());
  unlink((draft + "/z:").c_str());
  rmdir(draft.c_str());
  // Another program that starts at the same time may have been faster.
  return error == EEXIST || error == ENOTEMPTY ? 0 : error;
}

std::string DrivesOf(const std::string &home) { return home + "/drives"; }

std::string UnusableWords(const char *what, const std::string &folder, ErrorNumber number) {
  return what + ("\r\n\r\n" + folder) + "\r\n\r\n" + ErrorText(number);
}

} // namespace

std::string HomeFolder(std::string_view chosen) {
  if (!chosen.empty())
    return AbsoluteHostPath(chosen);
  if (const std::string_view home = Environment("TURFDESK_HOME"); !home.empty())
    return AbsoluteHostPath(home);
  // A relative XDG_DATA_HOME is to be ignored by its standard.
  if (const std::string_view data = Environment("XDG_DATA_HOME"); data.starts_with('/'))
    return AbsoluteHostPath(std::string(data) + "/turfdesk");
  return AbsoluteHostPath(UserFolder() + "/.local/share/turfdesk");
}

void MakeHome(const std::string &home) {
  constexpr const char *unusable = "The folder for the program's own files cannot be used.";
  if (home.empty())
    throw RuntimeError(ErrorNumber::PathNotFound,
                       std::string(unusable) + "\r\n\r\nIts path is relative, and the current folder is gone.");
  if (const int error = MakeFolders(home, PrivateMode); error != 0) {
    const ErrorNumber number = NumberOfFolderError(error);
    throw RuntimeError(number, UnusableWords(unusable, home, number));
  }
  const std::string drives = DrivesOf(home);
  struct stat status;
  if (stat(drives.c_str(), &status) == 0)
    return;
  if (const int error = errno == ENOENT ? MakeDrives(home, drives) : errno; error != 0) {
    const ErrorNumber number = NumberOfFolderError(error);
    throw RuntimeError(number, UnusableWords(DrivesUnusable, drives, number));
  }
}

RuntimeError NoDrives(const std::string &home) {
  constexpr ErrorNumber number = ErrorNumber::DeviceUnavailable;
  return {number, UnusableWords("There are no drives in the folder for them.", DrivesOf(home), number)};
}

std::string RepairDrives(const std::string &home) {
  if (!PathMap(home).Drives().empty())
    return "";
  const std::string drives = DrivesOf(home);
  if (const int error = MakeLinks(home, drives); error != 0)
    return UnusableWords(DrivesUnusable, drives, NumberOfFolderError(error));
  return "There were no drives in the folder for them. The links c: and z: were made anew.\r\n\r\n" + drives;
}

} // namespace turfdesk
