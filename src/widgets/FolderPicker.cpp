// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/FolderPicker.h"

#include "platform/RuntimeError.h"
#include "widgets/DirectoryList.h"
#include "widgets/DriveList.h"
#include "widgets/QtText.h"

namespace turfdesk {

FolderPicker::FolderPicker(DriveList &drives, DirectoryList &directories,
                           const std::function<void(const std::string &)> &tell)
    : mDrives(drives), mDirectories(directories) {
  QObject::connect(&drives, &DriveList::Change, &directories, [&drives, &directories, tell] {
    try {
      directories.SetPath(drives.Drive());
    } catch (const RuntimeError &error) {
      tell(error.Description());
    }
  });
  QObject::connect(&directories, &DirectoryList::OpenFailed, &directories,
                   [tell](const QString &description) { tell(ToUtf8(description)); });
}

void FolderPicker::SetFolders(FolderReader &folders) {
  mDrives.SetFolders(folders);
  mDirectories.SetFolders(folders);
}

void FolderPicker::SetPath(std::string_view folder) {
  mDrives.SetDrive(folder);
  mDirectories.SetPath(folder);
}

} // namespace turfdesk
