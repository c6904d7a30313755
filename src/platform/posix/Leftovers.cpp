// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/Leftovers.h"

#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

namespace turfdesk {

namespace {

/// A handler of signals may not take memory, nor wait for a lock.
struct Place {
  std::atomic<bool> isTaken = false;
  char path[PATH_MAX] = {};
};

constexpr int Places = 8;
Place places[Places];

void RemoveAt(int folder, const char *name, int depth);

/// Of the C library's routines that read folders none may be called by a handler.
void RemoveContents(int folder, int depth) {
  alignas(dirent64) char entries[1024];
  for (;;) {
    const long count = syscall(SYS_getdents64, folder, entries, sizeof(entries));
    if (count <= 0)
      return;
    for (long offset = 0; offset < count;) {
      const auto *entry = reinterpret_cast<const dirent64 *>(entries + offset);
      const std::string_view name = entry->d_name;
      if (name != "." && name != "..")
        RemoveAt(folder, entry->d_name, depth);
      offset += entry->d_reclen;
    }
  }
}

void RemoveAt(int folder, const char *name, int depth) {
  // More than any package has that is not made to do harm, and little enough for the stack.
  constexpr int deepest = 64;
  if (unlinkat(folder, name, 0) == 0 || depth > deepest)
    return;
  const int inner = openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (inner < 0)
    return;
  RemoveContents(inner, depth + 1);
  close(inner);
  unlinkat(folder, name, AT_REMOVEDIR);
}

} // namespace

Leftover::Leftover(Leftover &&other) noexcept : mPlace(std::exchange(other.mPlace, -1)) {}

void Leftover::Note(const std::string &path) {
  Forget();
  if (path.size() >= PATH_MAX)
    return;
  for (int i = 0; i < Places && mPlace < 0; ++i)
    if (!places[i].isTaken)
      mPlace = i;
  if (mPlace < 0)
    return;
  std::memcpy(places[mPlace].path, path.c_str(), path.size() + 1);
  places[mPlace].isTaken = true;
}

void Leftover::Forget() {
  if (mPlace >= 0)
    places[mPlace].isTaken = false;
  mPlace = -1;
}

void RemoveLeftovers() {
  for (const Place &place : places)
    if (place.isTaken)
      RemoveAt(AT_FDCWD, place.path, 0);
}

} // namespace turfdesk
