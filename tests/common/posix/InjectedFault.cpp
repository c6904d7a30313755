// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/InjectedFault.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>

namespace turfdesk {

namespace {

template <class... Arguments> long Through(const char *call, long number, Arguments... arguments) {
  return InjectedFault::IsStruck(call) ? -1 : syscall(number, arguments...);
}

bool IsUnnamed(int flags) { return (flags & O_TMPFILE) == O_TMPFILE; }

/// The mode that follows only where a file may be made.
mode_t TakeMode(int flags, va_list rest) {
  return IsUnnamed(flags) || (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
}

} // namespace

Fault Refusal(DiskWork work) {
  switch (work) {
  case DiskWork::Write:
    return {{"copy_file_range", "fallocate", "ftruncate", "pwrite", "write"}, ENOSPC};
  case DiskWork::Flush:
    return {{"fdatasync", "fsync", "sync_file_range"}, EIO};
  case DiskWork::Rename:
    return {{"linkat", "renameat"}, EACCES};
  case DiskWork::Delete:
    return {{"unlink", "unlinkat"}, EACCES};
  case DiskWork::Open:
    break;
  }
  return {{"open", "openat", "openat unnamed"}, EACCES};
}

void InjectedFault::TakeEffect(int error) {
  if (error == Fault::Kill)
    raise(SIGKILL);
  errno = error;
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

ssize_t pwrite64(int, const void *, size_t, off64_t) __attribute__((alias("pwrite")));

int ftruncate64(int file, off64_t length) noexcept {
  return static_cast<int>(turfdesk::Through("ftruncate", SYS_ftruncate, file, length));
}

int fsync(int file) { return static_cast<int>(turfdesk::Through("fsync", SYS_fsync, file)); }

int fdatasync(int file) { return static_cast<int>(turfdesk::Through("fdatasync", SYS_fdatasync, file)); }

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept {
  return static_cast<int>(turfdesk::Through("linkat", SYS_linkat, fromFolder, from, toFolder, to, flags));
}

int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept {
  return static_cast<int>(turfdesk::Through("renameat", SYS_renameat, fromFolder, from, toFolder, to));
}

int unlink(const char *path) noexcept { return static_cast<int>(turfdesk::Through("unlink", SYS_unlink, path)); }

int unlinkat(int folder, const char *path, int flags) noexcept {
  return static_cast<int>(turfdesk::Through("unlinkat", SYS_unlinkat, folder, path, flags));
}

int openat(int folder, const char *path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = turfdesk::TakeMode(flags, rest);
  va_end(rest);
  const char *call = turfdesk::IsUnnamed(flags) ? "openat unnamed" : "openat";
  return static_cast<int>(turfdesk::Through(call, SYS_openat, folder, path, flags, mode));
}

int open(const char *path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = turfdesk::TakeMode(flags, rest);
  va_end(rest);
  return static_cast<int>(turfdesk::Through("open", SYS_openat, AT_FDCWD, path, flags, mode));
}

int open64(const char *, int, ...) __attribute__((alias("open")));
}
