// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PosixFileService.h"

#include "platform/PathText.h"
#include "platform/WindowsNames.h"
#include "platform/posix/SystemError.h"
#include "platform/posix/TempFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace turfdesk {

namespace {

int StatusOf(const PathMap &paths, std::string_view path, struct stat &status) {
  return paths.Reach(path, [&status](const char *hostPath) { return stat(hostPath, &status) == 0 ? 0 : errno; });
}

/// Is it certain that a path that fails so leads to no file?
bool IsAbsence(int error) {
  return error == ENOENT || error == ENOTDIR || error == ENODEV || error == EILSEQ || error == ENAMETOOLONG;
}

int Unlink(const char *hostPath) {
  struct stat status;
  if (stat(hostPath, &status) != 0)
    return errno;
  if (S_ISDIR(status.st_mode))
    return EISDIR;
  // Asked for here and not of the system, which lets root delete everything and others whatever their folder holds.
  if (!S_ISREG(status.st_mode) || (status.st_mode & S_IWUSR) == 0)
    return EACCES;
  return unlink(hostPath) == 0 ? 0 : errno;
}

int HandToDesktop(ChildProcesses &children, const std::string &target) {
  // The desktop's tool ends at once where all is well, but can stay for as long as the document is open. What it says
  // within a second is what the user can be told.
  constexpr std::chrono::milliseconds patience{1000};
  constexpr int toolFoundNoFile = 2;
  pid_t process = 0;
  if (const int error = children.Start({"xdg-open", target}, ChildProcesses::Output::Nowhere, process); error != 0)
    return error;
  if (!WaitForEnd(OpenProcessHandle(process), patience))
    return 0;
  const int status = children.ExitStatus(process);
  if (status == 0)
    return 0;
  return status == toolFoundNoFile ? ENOENT : EACCES;
}

} // namespace

bool PosixFileService::Record(int error) {
  mLastError = 0;
  if (error == 0)
    return true;
  const ErrorNumber number = NumberOfSystemError(error);
  mLastError = static_cast<long>(number);
  mLastErrorText = ErrorText(number);
  return false;
}

bool PosixFileService::DeleteFile(std::string_view path) { return Record(mPaths.Reach(path, Unlink)); }

bool PosixFileService::DirExists(std::string_view path) {
  struct stat status;
  return StatusOf(mPaths, path, status) == 0 && S_ISDIR(status.st_mode);
}

bool PosixFileService::FileExists(std::string_view path) {
  struct stat status;
  return StatusOf(mPaths, path, status) == 0 && !S_ISDIR(status.st_mode);
}

bool PosixFileService::FileMayExist(std::string_view path) {
  struct stat status;
  const int error = StatusOf(mPaths, path, status);
  return error == 0 ? !S_ISDIR(status.st_mode) : !IsAbsence(error);
}

double PosixFileService::GetFileSize(std::string_view path) {
  struct stat status;
  const bool isFile = StatusOf(mPaths, path, status) == 0 && S_ISREG(status.st_mode);
  return isFile ? static_cast<double>(status.st_size) : 0;
}

bool PosixFileService::IsValidFilename(std::string_view text) {
  return IsFullWindowsPath(text) && IsWindowsName(FilePartOf(text)) && DirExists(DirPrefixOf(text)) && !DirExists(text);
}

std::string PosixFileService::GetTempFolder() {
  // It may be gone: systems sweep their temporary files.
  if (mTempFolder.empty() || !DirExists(mTempFolder))
    mTempFolder = MakeTempFolderOnDrive();
  if (!Record(mTempFolder.empty() ? EACCES : 0))
    ThrowSystemError(EACCES);
  return mTempFolder;
}

std::string PosixFileService::MakeTempFolderOnDrive() {
  // The usual places lead to no drive when the user has taken the one of the whole disk away.
  std::vector<std::string> parents = {"/tmp"};
  if (const char *chosen = std::getenv("TMPDIR"); chosen != nullptr && *chosen == '/')
    parents.insert(parents.begin(), chosen);
  for (const PathMap::Drive &drive : mPaths.Drives())
    parents.push_back(drive.link);
  for (const std::string &parent : parents) {
    if (mPaths.ToWindows(parent).empty())
      continue;
    if (const std::string folder = MakeTempFolder(parent); !folder.empty())
      return mPaths.ToWindows(folder);
  }
  return "";
}

void PosixFileService::OpenDocument(std::string_view addressOrPath) {
  if (IsAddress(addressOrPath)) {
    Record(HandToDesktop(mChildren, std::string(addressOrPath)));
    return;
  }
  std::string hostPath;
  const int error = mPaths.HostForm(addressOrPath, hostPath);
  Record(error == 0 ? HandToDesktop(mChildren, hostPath) : error);
}

} // namespace turfdesk
