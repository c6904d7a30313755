// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/FolderPicker.h"

#include "platform/RuntimeError.h"
#include "widgets/DirectoryList.h"
#include "widgets/DriveList.h"
#include "widgets/LetterMenu.h"
#include "widgets/QtText.h"

#include <QInputDialog>
#include <QPushButton>

namespace turfdesk {

namespace {

/// Asks for a name until there is a folder of that name, or the user gives up.
void AskForNewFolder(DirectoryList &directories, const std::function<void(const std::string &)> &tell) {
  QInputDialog dialog(directories.window());
  dialog.setWindowTitle("New Folder");
  dialog.setLabelText("Name of the new folder:");
  while (dialog.exec() == QDialog::Accepted) {
    try {
      directories.MakeFolder(ToUtf8(dialog.textValue().trimmed()));
      return;
    } catch (const RuntimeError &error) {
      tell(error.Description());
    }
  }
}

} // namespace

FolderPicker::FolderPicker(DriveList &drives, DirectoryList &directories,
                           const std::function<void(const std::string &)> &tell)
    : mDrives(drives), mDirectories(directories), mTell(tell) {
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

void FolderPicker::OfferNewFolder(QPushButton &button) {
  const auto ask = [&directories = mDirectories, tell = mTell] { AskForNewFolder(directories, tell); };
  QObject::connect(&button, &QPushButton::clicked, &mDirectories, ask);
  auto *menu = new LetterMenu(&mDirectories);
  menu->addAction(button.text(), ask);
  mDirectories.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(
      &mDirectories, &QWidget::customContextMenuRequested, menu,
      [menu, &directories = mDirectories](const QPoint &place) { menu->popup(directories.mapToGlobal(place)); });
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
