// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/posix/FolderNames.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// Translates between Windows paths and the host's. Drive letters are links in the home's folder "drives", named "c:",
/// "z:" and so on; they are looked at anew for each path, so that the user can change them at any time.
///
/// A name stands for the file or folder with exactly that name, or where there is none for one that differs only in
/// case. Failures are numbers of the system, as told in SystemError.h; 0 is success.
class PathMap {
public:
  /// home: an absolute host path, made by MakeHome.
  explicit PathMap(const std::string &home) : mDrives(home + "/drives") {}

  /// The host path with exactly the names of the Windows path; nothing is looked up. ".." ends at the drive's root.
  int Join(std::string_view windowsPath, std::string &hostPath) const;

  /// Calls a routine (host path as const char * -> 0 or the system's number) with what a Windows path stands for.
  /// The exact names are tried at once, so that a file that bears them costs no call of the system but the routine's.
  template <class Call> int Reach(std::string_view windowsPath, Call call) const {
    std::string hostPath;
    if (const int error = Join(windowsPath, hostPath); error != 0)
      return error;
    if (const int error = call(hostPath.c_str()); error != ENOENT)
      return error;
    if (const int error = Find(hostPath); error != 0)
      return error;
    return call(hostPath.c_str());
  }

  /// Where something that need not exist yet lies, or will.
  struct Place {
    std::string folder;
    /// The name there: that of what exists, or else as given.
    std::string name;
  };
  /// The folder must exist unless missingFolders is set, the drive in any case. A drive's root has no place (EISDIR).
  int FindPlace(std::string_view windowsPath, bool missingFolders, Place &place) const;

  /// The folder's full Windows path, each name as the disk has it.
  int Canonical(std::string_view windowsFolder, std::string &canonical) const;

  /// The host path as a person would write it, without the drive link. It is given also for what does not exist, with
  /// the result telling so; what is missing keeps its given names. "" when the text is no path at all.
  int HostForm(std::string_view windowsPath, std::string &hostPath) const;

  /// The Windows form of a host path by the drive that leads closest to it; a relative one starts from the current
  /// folder. It need not exist. "" when no Windows path can express it or the current folder is gone.
  std::string ToWindows(std::string_view hostPath) const;

  struct Drive {
    char letter; ///< upper case
    std::string link;
  };
  /// The drives there are, ready or not, in the order of their letters.
  std::vector<Drive> Drives() const;

private:
  /// How far a joined path leads.
  struct Location {
    std::string path;        ///< the names as the disk has them, followed by those that do not exist, as given
    std::size_t found = 0;   ///< how many of the names exist, the drive's included
    std::size_t missing = 0; ///< how many do not
    int error = 0;           ///< what else ended the search
  };
  Location Locate(const std::string &joined) const;
  bool EnterName(Location &location, std::string_view name) const;
  int WhyMissing(const Location &location) const;
  int Find(std::string &joined) const;
  std::string DriveLink(const std::string &path) const { return path.substr(0, mDrives.size() + 3); }

  std::string mDrives;
  mutable FolderNames mNames;
};

} // namespace turfdesk
