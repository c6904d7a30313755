// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "InjectedFault.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <vector>

namespace turfdesk {

namespace {

std::vector<InjectedFault *> activeFaults;

template <class... Arguments> long Through(const char *call, long number, Arguments... arguments) {
  for (InjectedFault *fault : activeFaults)
    if (fault->Strikes(call))
      return -1;
  return syscall(number, arguments...);
}

} // namespace

InjectedFault::InjectedFault(const std::string &call, int error) : mCall(call), mError(error) {
  activeFaults.push_back(this);
}

InjectedFault::~InjectedFault() { std::erase(activeFaults, this); }

bool InjectedFault::Strikes(const std::string &call) {
  if (call != mCall)
    return false;
  ++mCount;
  errno = mError;
  return true;
}

} // namespace turfdesk

// The program's own definitions take precedence over the C library's.
extern "C" {

ssize_t copy_file_range(int from, off64_t *fromOffset, int to, off64_t *toOffset, size_t length, unsigned flags) {
  return turfdesk::Through("copy_file_range", SYS_copy_file_range, from, fromOffset, to, toOffset, length, flags);
}

int fallocate(int file, int mode, off_t offset, off_t length) {
  return static_cast<int>(turfdesk::Through("fallocate", SYS_fallocate, file, mode, offset, length));
}

int sync_file_range(int file, off64_t offset, off64_t length, unsigned flags) {
  return static_cast<int>(turfdesk::Through("sync_file_range", SYS_sync_file_range, file, offset, length, flags));
}

ssize_t write(int file, const void *data, size_t length) {
  return turfdesk::Through("write", SYS_write, file, data, length);
}

ssize_t pwrite(int file, const void *data, size_t length, off_t offset) {
  return turfdesk::Through("pwrite", SYS_pwrite64, file, data, length, offset);
}

int fsync(int file) { return static_cast<int>(turfdesk::Through("fsync", SYS_fsync, file)); }

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept {
  return static_cast<int>(turfdesk::Through("linkat", SYS_linkat, fromFolder, from, toFolder, to, flags));
}

int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept {
  return static_cast<int>(turfdesk::Through("renameat", SYS_renameat, fromFolder, from, toFolder, to));
}

int openat(int folder, const char *path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  const bool unnamed = (flags & O_TMPFILE) == O_TMPFILE;
  return static_cast<int>(
      turfdesk::Through(unnamed ? "openat unnamed" : "openat", SYS_openat, folder, path, flags, mode));
}
}
