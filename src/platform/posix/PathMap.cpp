// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PathMap.h"

#include "platform/NextName.h"
#include "platform/PathText.h"
#include "platform/WindowsNames.h"
#include "platform/posix/FolderEntries.h"
#include "platform/posix/HostPaths.h"

#include <sys/stat.h>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace turfdesk {

namespace {

bool IsDriveName(std::string_view name) { return name.size() == 2 && IsFullWindowsPath(name); }

/// What follows the folder in the path, "" for the folder itself, or nothing when the path does not lie in it.
std::optional<std::string_view> Below(std::string_view path, std::string_view folder) {
  if (folder == "/")
    return path.substr(1);
  if (!path.starts_with(folder))
    return std::nullopt;
  path.remove_prefix(folder.size());
  if (path.empty())
    return path;
  return path.front() == '/' ? std::optional(path.substr(1)) : std::nullopt;
}

char UpperLetter(char letter) { return static_cast<char>(letter & ~0x20); }

/// "" when one of the names is none that Windows could have.
std::string WindowsPath(char letter, std::string_view names) {
  std::string path = {letter, ':', '\\'};
  while (!names.empty()) {
    const std::string_view name = NextName(names, IsSlash);
    if (!IsWindowsName(name))
      return "";
    path.append(name).append(names.empty() ? "" : "\\");
  }
  return path;
}

struct Target {
  char letter;
  std::string folder;
};

struct Mapping {
  /// How many bytes of the path the drive stands for; 0 when none leads to it.
  std::size_t nearness = 0;
  std::string path;
};

Mapping ClosestMapping(const std::vector<Target> &targets, const std::string &hostPath) {
  Mapping closest;
  for (const Target &target : targets) {
    const auto names = Below(hostPath, target.folder);
    if (names && target.folder.size() > closest.nearness)
      closest = {target.folder.size(), WindowsPath(target.letter, *names)};
  }
  return closest;
}

bool IsFolder(const std::string &hostPath) {
  struct stat status;
  return stat(hostPath.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The absolute path by the place on the disk that it leads to. A file that is a link keeps its name. What does not
/// exist, or lies too deep for the system, has its names as given.
std::string WithFolderLinksFollowed(std::string_view hostPath) {
  std::string place;
  for (hostPath.remove_prefix(1); !hostPath.empty();) {
    const std::string_view name = NextName(hostPath, IsSlash);
    std::string next = place + "/" + std::string(name);
    const std::string real = RealHostPath(next);
    if (!real.empty() && (!hostPath.empty() || IsFolder(real)))
      place = real == "/" ? "" : real;
    else if (name == "..")
      place.resize(std::min(place.size(), place.rfind('/')));
    else
      place = std::move(next);
  }
  return place.empty() ? "/" : place;
}

} // namespace

int PathMap::Join(std::string_view windowsPath, std::string &hostPath) const {
  windowsPath = WithoutSystemBeginning(windowsPath);
  if (!IsFullWindowsPath(windowsPath))
    return ENOTDIR;
  hostPath.reserve(mDrives.size() + windowsPath.size() + 1);
  hostPath = mDrives;
  hostPath += {'/', static_cast<char>(windowsPath[0] | 0x20), ':'};
  const std::size_t root = hostPath.size();
  windowsPath.remove_prefix(2);
  while (!windowsPath.empty()) {
    const std::string_view name = NextName(windowsPath, IsSeparator);
    if (name.empty() || name == ".")
      continue;
    if (name == "..") {
      hostPath.resize(std::max(root, hostPath.rfind('/')));
      continue;
    }
    if (!IsWindowsName(name)) {
      hostPath.clear();
      return EILSEQ;
    }
    hostPath.append("/").append(name);
  }
  return 0;
}

PathMap::Location PathMap::Locate(const std::string &joined) const {
  Location location;
  location.path = mDrives;
  std::string_view names = std::string_view(joined).substr(mDrives.size() + 1);
  while (!names.empty()) {
    const std::string_view name = NextName(names, IsSlash);
    if (location.missing == 0 && EnterName(location, name)) {
      ++location.found;
      continue;
    }
    location.path.append("/").append(name);
    ++location.missing;
  }
  return location;
}

bool PathMap::EnterName(Location &location, std::string_view name) const {
  const std::string folder = location.path;
  location.path.append("/").append(name);
  struct stat status;
  if (lstat(location.path.c_str(), &status) == 0)
    return true;
  location.error = errno == ENOENT ? 0 : errno;
  const std::string actual = location.error == 0 ? mNames.Find(folder, name, location.error) : "";
  location.path = actual.empty() ? folder : folder + "/" + actual;
  return !actual.empty();
}

int PathMap::WhyMissing(const Location &location) const {
  if (location.error != 0)
    return location.error;
  if (location.found == 0)
    return ENODEV;
  // That its link exists says nothing of the drive; that something in it exists does.
  struct stat status;
  if (location.found == 1 && stat(DriveLink(location.path).c_str(), &status) != 0)
    return ENOMEDIUM;
  if (location.missing == 0)
    return 0;
  return location.missing == 1 ? ENOENT : ENOTDIR;
}

int PathMap::Find(std::string &joined) const {
  Location location = Locate(joined);
  const int error = WhyMissing(location);
  joined = std::move(location.path);
  return error;
}

int PathMap::FindPlace(std::string_view windowsPath, bool missingFolders, Place &place) const {
  std::string hostPath;
  if (const int error = Join(windowsPath, hostPath); error != 0)
    return error;
  if (hostPath == DriveLink(hostPath))
    return EISDIR;
  const int error = Find(hostPath);
  const bool mayBeMade = error == ENOENT || (missingFolders && error == ENOTDIR);
  if (error != 0 && !mayBeMade)
    return error;
  SplitHostPath split = SplitName(hostPath);
  place = {std::move(split.folder), std::move(split.name)};
  return 0;
}

int PathMap::Canonical(std::string_view windowsFolder, std::string &canonical) const {
  std::string hostPath;
  if (const int error = Join(windowsFolder, hostPath); error != 0)
    return error;
  if (const int error = Find(hostPath); error != 0)
    return error;
  const std::size_t drive = mDrives.size() + 1;
  const std::string_view names = std::string_view(hostPath).substr(std::min(drive + 3, hostPath.size()));
  canonical = WindowsPath(UpperLetter(hostPath[drive]), names);
  return 0;
}

int PathMap::HostForm(std::string_view windowsPath, std::string &hostPath) const {
  hostPath.clear();
  if (const int error = Join(windowsPath, hostPath); error != 0)
    return error;
  const int error = Find(hostPath);
  const std::string link = DriveLink(hostPath);
  if (const std::string target = RealHostPath(link); !target.empty())
    hostPath = AbsoluteHostPath(target + "/" + hostPath.substr(link.size()));
  return error;
}

std::vector<PathMap::Drive> PathMap::Drives() const {
  std::map<char, std::string> links;
  ForEachEntry(mDrives, [this, &links](const dirent &entry) {
    if (!IsDriveName(entry.d_name))
      return;
    // Of "C:" and "c:" the latter is the one that paths lead through.
    std::string &link = links[UpperLetter(entry.d_name[0])];
    link = std::max(link, mDrives + "/" + entry.d_name);
  });
  std::vector<Drive> drives;
  drives.reserve(links.size());
  for (auto &[letter, link] : links)
    drives.push_back({letter, std::move(link)});
  return drives;
}

std::string PathMap::ToWindows(std::string_view hostPath) const {
  const std::string given = AbsoluteHostPath(hostPath);
  if (given.empty())
    return "";
  std::vector<Target> targets;
  for (const Drive &drive : Drives())
    if (std::string folder = RealHostPath(drive.link); !folder.empty())
      targets.push_back({drive.letter, std::move(folder)});

  // The names as given are kept where they lead through a drive's own folder. That the root of the disk is a drive,
  // too, is no reason to keep them: links can lead to a closer drive.
  const Mapping byNames = ClosestMapping(targets, given);
  if (byNames.nearness > 1 && !byNames.path.empty())
    return byNames.path;
  const Mapping byPlace = ClosestMapping(targets, WithFolderLinksFollowed(given));
  return byPlace.nearness > byNames.nearness || byNames.path.empty() ? byPlace.path : byNames.path;
}

} // namespace turfdesk
