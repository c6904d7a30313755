// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace turfdesk::test {

/// A folder of the host that is gone with the object.
class TempFolder {
public:
  TempFolder();
  TempFolder(const TempFolder &) = delete;
  TempFolder &operator=(const TempFolder &) = delete;
  ~TempFolder();

  const std::filesystem::path &Path() const { return mPath; }

private:
  std::filesystem::path mPath;
};

/// The ground that a world stands on: a drive C: without files and a settings tree without settings of the game.
///
/// Where the program has a home folder, that is a new one, and it is gone with the object. Windows has one drive C: and
/// one registry: there they are emptied, so that a new ground takes away what stood on the one before, and the folder
/// is only a place for files beside the world.
class WorldHome {
public:
  /// Throws std::runtime_error on a system that is not meant to be emptied.
  WorldHome();

  const std::filesystem::path &Path() const { return mFolder.Path(); }

private:
  TempFolder mFolder;
};

/// Host path of the root of drive C: in the world of a home.
std::filesystem::path DriveOf(const std::filesystem::path &home);

/// Host path of a Windows path under C: in the world of a home.
std::filesystem::path HostIn(const std::filesystem::path &home, const std::string &windowsPath);

/// The content of each file below a folder of the host, hidden ones included, by path relative to it with slashes.
std::map<std::string, std::string> FilesBelow(const std::filesystem::path &folder);

/// The same of the whole drive C:, without what is the system's own.
std::map<std::string, std::string> FilesOnDrive(const std::filesystem::path &home);

/// Is this one of the things on drive C: that the system itself has made?
bool IsOfSystem(const std::filesystem::path &path);

/// Gives a new ground what build makes, which is always the same.
void Fill(const WorldHome &home, void (*build)(const std::filesystem::path &home));

/// Gives a folder of drive C: other names, each of another kind, by which the system finds the same files.
std::vector<std::string> MakeAliases(const std::filesystem::path &home, const std::string &folder);

/// Takes the permission to change a file away, or gives it back.
void SetReadOnly(const std::filesystem::path &file, bool readOnly);

/// Makes a file or folder look as if nobody had changed it for years, also one that somebody has open.
void MakeOld(const std::filesystem::path &path);

} // namespace turfdesk::test
