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

void FolderNames::Listing::Add(std::string_view name) {
  const auto [known, isNew] = namesByFolded.try_emplace(FoldCase(name), name);
  if (isNew || known->second == name)
    return;
  hasTwins = true;
  known->second = std::min(known->second, std::string(name));
}

void FolderNames::Listing::Remove(std::string_view name) {
  const auto known = namesByFolded.find(FoldCase(name));
  if (known == namesByFolded.end())
    return;
  // Which other name is to be found now? And one that went before the folder was listed may be told of only after.
  if (hasTwins || known->second != name)
    watch = -1;
  else
    namesByFolded.erase(known);
}

const FolderNames::Listing &FolderNames::ListingOf(const std::string &hostFolder, const struct stat &status) {
  const auto known = std::find_if(mListings.begin(), mListings.end(),
                                  [&hostFolder](const Listing &listing) { return listing.folder == hostFolder; });
  if (known != mListings.end()) {
    if (IsValid(*known, status)) {
      mListings.splice(mListings.begin(), mListings, known);
      return *known;
    }
    mListings.splice(mListings.end(), mListings, known);
    ForgetLast();
  }
  if (mListings.size() == RememberedFolders)
    ForgetLast();
  Listing &listing = mListings.emplace_front(Listing{hostFolder, status, IsSettled(status)});
  // Before it is read, so that nothing is missed.
  if (!listing.lasting)
    Watch(listing);
  listing.error = ForEachEntry(hostFolder, [&listing](const dirent &entry) { listing.Add(entry.d_name); });
  if (listing.error != 0) {
    listing.lasting = false;
    listing.watch = -1;
  }
  listing.cost = std::chrono::steady_clock::now() - listing.listed;
  return listing;
}

bool FolderNames::IsValid(Listing &listing, const struct stat &status) {
  if (listing.lasting)
    return IsUnchanged(listing.status, status);
  if (listing.watch < 0 || listing.status.st_dev != status.st_dev || listing.status.st_ino != status.st_ino)
    return false;
  TakeOverChanges();
  // Of what other machines do on a disk in the network the kernel is not told, so that the folder is listed now and
  // then. To do so takes a hundredth of the time at the most.
  const auto trusted = std::max<std::chrono::steady_clock::duration>(std::chrono::seconds(1), 100 * listing.cost);
  return listing.watch >= 0 && std::chrono::steady_clock::now() - listing.listed < trusted;
}

void FolderNames::Watch(Listing &listing) {
  if (!mChanges.IsOpen())
    mChanges = Descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  constexpr std::uint32_t changes =
      IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
  listing.watch = inotify_add_watch(mChanges.Number(), listing.folder.c_str(), changes);
}

/// Another listing of the same folder by another path is no longer told of changes then, either.
void FolderNames::ForgetLast() {
  if (mListings.back().watch >= 0)
    inotify_rm_watch(mChanges.Number(), mListings.back().watch);
  mListings.pop_back();
}

void FolderNames::TakeOverChanges() {
  alignas(inotify_event) char changes[4096];
  for (;;) {
    const ssize_t count = read(mChanges.Number(), changes, sizeof(changes));
    if (count <= 0)
      return;
    for (ssize_t offset = 0; offset < count;) {
      const auto &change = *reinterpret_cast<const inotify_event *>(changes + offset);
      TakeOver(change);
      offset += static_cast<ssize_t>(sizeof(change) + change.len);
    }
  }
}

void FolderNames::TakeOver(const inotify_event &change) {
  constexpr std::uint32_t added = IN_CREATE | IN_MOVED_TO;
  constexpr std::uint32_t removed = IN_DELETE | IN_MOVED_FROM;
  for (Listing &listing : mListings) {
    const bool isLost = (change.mask & IN_Q_OVERFLOW) != 0;
    if (listing.watch < 0 || (listing.watch != change.wd && !isLost))
      continue;
    if ((change.mask & added) != 0)
      listing.Add(change.name);
    else if ((change.mask & removed) != 0)
      listing.Remove(change.name);
    else
      listing.watch = -1;
  }
}

} // namespace turfdesk
