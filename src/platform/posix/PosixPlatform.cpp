// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Platform.h"
#include "platform/RuntimeError.h"

#include "platform/PathText.h"
#include "platform/WindowsNames.h"
#include "platform/posix/ChildProcesses.h"
#include "platform/posix/HomeFolder.h"
#include "platform/posix/PathMap.h"
#include "platform/posix/PosixBinaryFiles.h"
#include "platform/posix/PosixFileCopier.h"
#include "platform/posix/PosixFileService.h"
#include "platform/posix/PosixFolderReader.h"
#include "platform/posix/PosixProcesses.h"
#include "platform/posix/PosixRegistryBranches.h"
#include "platform/posix/PosixRegistryFunctions.h"
#include "platform/posix/PosixRegistryService.h"
#include "platform/posix/PosixSettings.h"
#include "platform/posix/PosixStagedFiles.h"
#include "platform/posix/ProgramFile.h"
#include "platform/posix/SettingsAccess.h"
#include "platform/posix/ZipModuleLoader.h"

#include <csignal>
#include <filesystem>

namespace turfdesk {

namespace {

class PosixPlatform final : public Platform {
public:
  explicit PosixPlatform(const std::string &home) : mHome(home), mPaths(home), mSettings(home) {
    // A file that grows beyond the user's limit is an error to tell, not a reason to die.
    std::signal(SIGXFSZ, SIG_IGN);
  }

  void PrepareServices() override { mSettings.Prepare(); }

  std::unique_ptr<RegistryService> CreateRegistryService() override {
    return std::make_unique<PosixRegistryService>(mSettings.Open());
  }

  std::unique_ptr<FileService> CreateFileService() override {
    if (mPaths.Drives().empty())
      throw NoDrives(mHome);
    return std::make_unique<PosixFileService>(mPaths, mChildren);
  }

  std::unique_ptr<ZipLayer> CreateZipLayer() override { return LoadZipLayer(mFiles, mStagedFiles); }

  RegistryFunctions &DirectRegistry() override { return mDirectRegistry; }
  RegistryBranches &Branches() override { return mBranches; }
  FileCopier &Copier() override { return mCopier; }
  BinaryFiles &Files() override { return mFiles; }
  StagedFiles &NewFiles() override { return mStagedFiles; }
  FolderReader &Folders() override { return mFolders; }
  Processes &Programs() override { return mProcesses; }

  void RestoreServices(MessageBoxes &boxes) override {
    mSettings.Restore(boxes);
    if (const std::string words = RepairDrives(mHome); !words.empty())
      TellPlainly(boxes, words);
  }
  void NoteCleanStart() override { RefreshGoodCopy(mHome); }

  std::string ProgramFolder() override {
    const std::filesystem::path program = ProgramFile();
    return program.empty() ? "" : mPaths.ToWindows(program.parent_path().string());
  }

  std::string ToWindowsPath(std::string_view given) override {
    const std::string path = PathOfFileAddress(given).value_or(std::string(given));
    // The system would take what stands before the NUL for the whole path.
    if (path.empty() || path.find('\0') != std::string::npos)
      return "";
    // The start of a path on a network is kept, too: it cannot be reached, and the user is told so under its own name.
    const bool isWindowsPath = IsFullWindowsPath(path) || path.starts_with("\\\\");
    return isWindowsPath ? CleanPath(path) : mPaths.ToWindows(path);
  }

  std::string ToHostPath(std::string_view windowsPath) override {
    std::string hostPath;
    mPaths.HostForm(windowsPath, hostPath);
    return hostPath;
  }

private:
  std::string mHome;
  PathMap mPaths;
  ChildProcesses mChildren;
  PosixBinaryFiles mFiles{mPaths};
  PosixStagedFiles mStagedFiles{mPaths};
  PosixFileCopier mCopier{mPaths};
  PosixFolderReader mFolders{mPaths};
  PosixProcesses mProcesses{mPaths, mChildren};
  SettingsAccess mSettings;
  PosixRegistryFunctions mDirectRegistry{mSettings};
  PosixRegistryBranches mBranches{mSettings};
};

} // namespace

bool HasHomeFolder() { return true; }

std::unique_ptr<Platform> MakePlatform(std::string_view home) {
  const std::string folder = HomeFolder(home);
  MakeHome(folder);
  return std::make_unique<PosixPlatform>(folder);
}

} // namespace turfdesk
