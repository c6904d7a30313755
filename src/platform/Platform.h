// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/FileCopier.h"
#include "platform/FileService.h"
#include "platform/FolderReader.h"
#include "platform/MessageBoxes.h"
#include "platform/Processes.h"
#include "platform/RegistryBranches.h"
#include "platform/RegistryFunctions.h"
#include "platform/RegistryService.h"
#include "platform/StagedFile.h"
#include "platform/ZipLayer.h"

#include <memory>
#include <string>
#include <string_view>

namespace turfdesk {

/// The desktop that the program runs on. The entry point makes one and hands it in; it outlives all that it creates.
class Platform {
public:
  Platform() = default;
  Platform(const Platform &) = delete;
  Platform &operator=(const Platform &) = delete;
  virtual ~Platform() = default;

  /// Begins in the background what the creation of the services will need, so that a program that has a screen to set
  /// up waits less for them. At most once, before they are created; never throws.
  virtual void PrepareServices() = 0;
  /// Creates the service of the settings tree. Throws RuntimeError when the tree cannot be opened or is damaged.
  virtual std::unique_ptr<RegistryService> CreateRegistryService() = 0;
  /// Throws RuntimeError when the drives cannot be reached.
  virtual std::unique_ptr<FileService> CreateFileService() = 0;
  virtual std::unique_ptr<ZipLayer> CreateZipLayer() = 0;

  virtual RegistryFunctions &DirectRegistry() = 0;
  virtual RegistryBranches &Branches() = 0;
  virtual FileCopier &Copier() = 0;
  virtual BinaryFiles &Files() = 0;
  virtual StagedFiles &NewFiles() = 0;
  virtual FolderReader &Folders() = 0;
  virtual Processes &Programs() = 0;

  /// Attempts to make the services available again after one could not be created. What was done is told in plain
  /// boxes. Never throws.
  virtual void RestoreServices(MessageBoxes &boxes) = 0;
  /// Told after a start without trouble: what the repair would bring back may be refreshed from the present state.
  /// Never throws; a failure costs only the refresh.
  virtual void NoteCleanStart() = 0;

  /// The folder that the program file lies in, as a Windows path.
  virtual std::string ProgramFolder() = 0;
  /// The Windows form of a path that a user or the shell gave: a host path (relative ones start from the current
  /// folder), a file's address, or already a Windows path. It is clean, see CleanPath. In a host path ".." is the
  /// folder above the one that a link leads to. "" for "", when no Windows path can express it, and for a relative path
  /// when the current folder is gone.
  virtual std::string ToWindowsPath(std::string_view path) = 0;
  /// The host's form of a Windows path, for libraries that open files themselves (such as the pictures of a window)
  /// and for people. The result need not exist.
  virtual std::string ToHostPath(std::string_view windowsPath) = 0;
};

/// Does the program keep its own files in a home folder? Windows has its own places for all of them.
bool HasHomeFolder();

/// Makes this system's platform. home, a host path in UTF-8, overrides where the program keeps its own files; empty
/// takes the usual place. Throws RuntimeError, whose words say which folder is the matter, when that place cannot be
/// made. Where there is no home folder, home means nothing.
std::unique_ptr<Platform> MakePlatform(std::string_view home);

} // namespace turfdesk
