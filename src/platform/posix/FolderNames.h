// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/posix/Descriptor.h"

#include <sys/inotify.h>
#include <sys/stat.h>

#include <chrono>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace turfdesk {

/// Finds names in folders of the host without regard to case. The names of the folders that it looked into last are
/// remembered for as long as the folders do not change: a catalogue from another system can name thousands of files
/// of one folder in another case. Where they do change the kernel tells how: of thousands of files that are written
/// into one folder each is looked for first.
class FolderNames {
public:
  /// The name in the folder that equals the given one but for case, of several the first in the order of their bytes.
  /// "" when there is none or the folder cannot be read; error is set when that cannot be told just now.
  std::string Find(const std::string &hostFolder, std::string_view name, int &error);

private:
  struct Listing {
    std::string folder;
    struct stat status;
    /// False when a later change might not show in the status.
    bool lasting;
    /// What kept the folder from being read to its end.
    int error = 0;
    std::unordered_map<std::string, std::string> namesByFolded = {};
    /// Are there names that differ in case alone, of which only one is remembered?
    bool hasTwins = false;
    /// The kernel's number for telling changes of the folder; -1 when it does not.
    int watch = -1;
    std::chrono::steady_clock::time_point listed = std::chrono::steady_clock::now();
    /// What it took to list the folder.
    std::chrono::steady_clock::duration cost = {};

    void Add(std::string_view name);
    void Remove(std::string_view name);
  };

  const Listing &ListingOf(const std::string &hostFolder, const struct stat &status);
  bool IsValid(Listing &listing, const struct stat &status);
  void Watch(Listing &listing);
  void ForgetLast();
  void TakeOverChanges();
  void TakeOver(const inotify_event &change);

  /// The one used last comes first.
  std::list<Listing> mListings;
  /// Where the kernel tells of changes.
  Descriptor mChanges;
};

} // namespace turfdesk
