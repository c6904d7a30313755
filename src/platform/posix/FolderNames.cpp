// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/FolderNames.h"

#include "platform/CaseFold.h"
#include "platform/posix/FolderEntries.h"

#include <algorithm>
#include <ctime>

namespace turfdesk {

namespace {

constexpr std::size_t RememberedFolders = 8;

/// A change within the same tick of the disk's clock leaves the folder's time as it is. Two seconds is the coarsest
/// tick in use; a folder that changed longer ago shows every further change.
constexpr time_t SettledSeconds = 3;

bool IsSettled(const struct stat &status) { return status.st_mtime + SettledSeconds < std::time(nullptr); }

/// Is it only for now that the folder cannot be listed? One that is closed to its user has no names that he could see.
bool CannotTell(int error) { return error == EMFILE || error == ENFILE || error == ENOMEM || error == EIO; }

bool SameTime(const timespec &left, const timespec &right) {
  return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

bool IsUnchanged(const struct stat &before, const struct stat &now) {
  return before.st_dev == now.st_dev && before.st_ino == now.st_ino && SameTime(before.st_mtim, now.st_mtim) &&
         SameTime(before.st_ctim, now.st_ctim);
}

} // namespace

std::string FolderNames::Find(const std::string &hostFolder, std::string_view name, int &error) {
  struct stat status;
  if (stat(hostFolder.c_str(), &status) != 0)
    return "";
  const Listing &listing = ListingOf(hostFolder, status);
  if (CannotTell(listing.error))
    error = listing.error;
  const auto found = listing.namesByFolded.find(FoldCase(name));
  return found == listing.namesByFolded.end() ? "" : found->second;
}

const FolderNames::Listing &FolderNames::ListingOf(const std::string &hostFolder, const struct stat &status) {
  const auto known = std::find_if(mListings.begin(), mListings.end(),
                                  [&hostFolder](const Listing &listing) { return listing.folder == hostFolder; });
  if (known != mListings.end()) {
    mListings.splice(mListings.begin(), mListings, known);
    if (known->lasting && IsUnchanged(known->status, status))
      return *known;
    mListings.pop_front();
  }
  Listing &listing = mListings.emplace_front(Listing{hostFolder, status, IsSettled(status), 0, {}});
  if (mListings.size() > RememberedFolders)
    mListings.pop_back();
  listing.error = ForEachEntry(hostFolder, [&listing](const dirent &entry) {
    std::string &name = listing.namesByFolded.try_emplace(FoldCase(entry.d_name), entry.d_name).first->second;
    name = std::min(name, std::string(entry.d_name));
  });
  listing.lasting = listing.lasting && listing.error == 0;
  return listing;
}

} // namespace turfdesk
