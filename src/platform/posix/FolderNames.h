// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <sys/stat.h>

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace turfdesk {

/// Finds names in folders of the host without regard to case. The names of the folders that it looked into last are
/// remembered for as long as the folders do not change: a catalogue from another system can name thousands of files
/// of one folder in another case.
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
    int error;
    std::unordered_map<std::string, std::string> namesByFolded;
  };

  const Listing &ListingOf(const std::string &hostFolder, const struct stat &status);

  /// The one used last comes first.
  std::list<Listing> mListings;
};

} // namespace turfdesk
