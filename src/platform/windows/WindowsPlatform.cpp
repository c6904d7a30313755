// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Platform.h"

#include "platform/PathText.h"
#include "platform/windows/LibraryRepair.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsBinaryFiles.h"
#include "platform/windows/WindowsFileCopier.h"
#include "platform/windows/WindowsFileService.h"
#include "platform/windows/WindowsFolderReader.h"
#include "platform/windows/WindowsProcesses.h"
#include "platform/windows/WindowsRegistryBranches.h"
#include "platform/windows/WindowsRegistryFunctions.h"
#include "platform/windows/WindowsRegistryService.h"
#include "platform/windows/WindowsStagedFiles.h"
#include "platform/zip/LibzipLayer.h"

#include <windows.h>

namespace turfdesk {

namespace {

/// The program keeps nothing in files of its own here: the settings tree is the registry, and the drives are what they
/// are.
class WindowsPlatform final : public Platform {
public:
  WindowsPlatform() {
    // A drive that is not ready is an error for the program to tell, not for a box of the system.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  }

  void PrepareServices() override {}

  std::unique_ptr<RegistryService> CreateRegistryService() override {
    return std::make_unique<WindowsRegistryService>();
  }
  std::unique_ptr<FileService> CreateFileService() override { return std::make_unique<WindowsFileService>(); }
  std::unique_ptr<ZipLayer> CreateZipLayer() override { return MakeLibzipLayer(mFiles, mStagedFiles); }

  RegistryFunctions &DirectRegistry() override { return mDirectRegistry; }
  RegistryBranches &Branches() override { return mBranches; }
  FileCopier &Copier() override { return mCopier; }
  BinaryFiles &Files() override { return mFiles; }
  StagedFiles &NewFiles() override { return mStagedFiles; }
  FolderReader &Folders() override { return mFolders; }
  Processes &Programs() override { return mProcesses; }

  void RestoreServices(MessageBoxes &boxes) override { RegisterLibraries(mProcesses, boxes); }
  void NoteCleanStart() override {}

  std::string ProgramFolder() override {
    std::wstring path;
    DWORD length = 0;
    // The system does not say how long it is, only that the room was not enough.
    do {
      path.resize(path.size() + MAX_PATH);
      length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    } while (length == path.size());
    return std::string(PathPartOf(ToUtf8(PlainPath(path.substr(0, length)))));
  }

  std::string ToWindowsPath(std::string_view path) override { return FullPath(path); }

  std::string ToHostPath(std::string_view windowsPath) override {
    std::wstring systemPath;
    return ToSystemPath(windowsPath, systemPath) == 0 ? ToUtf8(PlainPath(systemPath)) : "";
  }

private:
  WindowsBinaryFiles mFiles;
  WindowsStagedFiles mStagedFiles;
  WindowsFileCopier mCopier;
  WindowsFolderReader mFolders;
  WindowsProcesses mProcesses;
  WindowsRegistryFunctions mDirectRegistry;
  WindowsRegistryBranches mBranches;
};

} // namespace

bool HasHomeFolder() { return false; }

std::unique_ptr<Platform> MakePlatform(std::string_view /*home*/) { return std::make_unique<WindowsPlatform>(); }

} // namespace turfdesk
