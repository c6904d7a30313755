// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <dirent.h>

#include <cerrno>
#include <memory>
#include <string>
#include <string_view>

namespace turfdesk {

struct FolderCloser {
  void operator()(DIR *folder) const { closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

/// Calls a routine with each entry (const dirent &) of a folder of the host, but for "." and "..". Gives 0, or the
/// system's number of what kept the folder from being read to its end.
template <class Call> int ForEachEntry(const std::string &hostFolder, Call call) {
  const OpenFolder folder(opendir(hostFolder.c_str()));
  if (!folder)
    return errno;
  for (;;) {
    errno = 0;
    const dirent *entry = readdir(folder.get());
    if (entry == nullptr)
      return errno;
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..")
      call(*entry);
  }
}

} // namespace turfdesk
