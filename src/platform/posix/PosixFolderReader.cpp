// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PosixFolderReader.h"

#include "platform/NameOrder.h"
#include "platform/NamePatterns.h"
#include "platform/WindowsNames.h"
#include "platform/posix/FolderEntries.h"
#include "platform/posix/SystemError.h"

#include <sys/stat.h>

#include <functional>

namespace turfdesk {

namespace {

/// A list tells apart a missing drive, one that is not ready, a missing folder and one without access.
[[noreturn]] void ThrowListError(int error) {
  switch (NumberOfSystemError(error)) {
  case ErrorNumber::DeviceIo:
    throw RuntimeError(ErrorNumber::DiskNotReady);
  case ErrorNumber::BadFileName:
    throw RuntimeError(ErrorNumber::PathNotFound);
  default:
    ThrowFolderError(error);
  }
}

/// S_IFDIR, S_IFREG and so on, of what a link leads to; 0 when it leads nowhere.
mode_t KindOf(const char *folder, const dirent &entry) {
  if (entry.d_type == DT_DIR)
    return S_IFDIR;
  if (entry.d_type == DT_REG)
    return S_IFREG;
  struct stat status;
  const std::string path = std::string(folder) + "/" + entry.d_name;
  return stat(path.c_str(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}

} // namespace

template <class Accept>
std::vector<std::string> PosixFolderReader::Names(std::string_view folder, mode_t kind, Accept accept) const {
  std::vector<std::string> names;
  const int error = mPaths.Reach(folder, [&](const char *hostPath) {
    return ForEachEntry(hostPath, [&](const dirent &entry) {
      const std::string_view name = entry.d_name;
      if (!name.starts_with('.') && accept(name) && IsWindowsName(name) && KindOf(hostPath, entry) == kind)
        names.emplace_back(name);
    });
  });
  if (error != 0)
    ThrowListError(error);
  SortForPeople(names, std::identity());
  return names;
}

std::vector<std::string> PosixFolderReader::Drives() {
  std::vector<std::string> names;
  for (const PathMap::Drive &drive : mPaths.Drives())
    names.push_back({drive.letter, ':'});
  return names;
}

std::vector<std::string> PosixFolderReader::Subfolders(std::string_view folder) {
  return Names(folder, S_IFDIR, [](std::string_view) { return true; });
}

std::vector<std::string> PosixFolderReader::Files(std::string_view folder, std::string_view pattern) {
  return Names(folder, S_IFREG,
               [patterns = NamePatterns(pattern)](std::string_view name) { return patterns.Match(name); });
}

std::string PosixFolderReader::StartFolder() {
  std::vector<std::string> folders = Drives();
  folders.insert(folders.begin(), mPaths.ToWindows("."));
  for (const std::string &folder : folders)
    if (std::string canonical; FindFolder(folder, canonical) == 0)
      return canonical;
  return "C:\\";
}

std::string PosixFolderReader::CanonicalFolder(std::string_view folder) {
  std::string canonical;
  if (const int error = FindFolder(folder, canonical); error != 0)
    ThrowListError(error);
  return canonical;
}

int PosixFolderReader::FindFolder(std::string_view folder, std::string &canonical) const {
  if (const int error = mPaths.Canonical(folder, canonical); error != 0)
    return error;
  return mPaths.Reach(canonical, [](const char *hostPath) { return OpenFolder(opendir(hostPath)) ? 0 : errno; });
}

} // namespace turfdesk
