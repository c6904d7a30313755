// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/DriveList.h"

#include "platform/RuntimeError.h"
#include "widgets/QtText.h"

namespace turfdesk {

DriveList::DriveList(QWidget *parent) : QComboBox(parent) {
  connect(this, &QComboBox::activated, this, &DriveList::Change);
}

void DriveList::SetFolders(FolderReader &folders) {
  mFolders = &folders;
  ReadDrives();
  setCurrentIndex(findText(ToQString(folders.StartFolder()).left(2), Qt::MatchFixedString));
}

std::string DriveList::Drive() const { return ToUtf8(currentText()); }

void DriveList::SetDrive(std::string_view path) {
  const QString drive = ToQString(path).left(2);
  if (findText(drive, Qt::MatchFixedString) < 0)
    ReadDrives();
  const int place = findText(drive, Qt::MatchFixedString);
  if (place < 0)
    throw RuntimeError(ErrorNumber::DeviceUnavailable);
  if (place == currentIndex())
    return;
  setCurrentIndex(place);
  emit Change();
}

void DriveList::showPopup() {
  ReadDrives();
  QComboBox::showPopup();
}

void DriveList::ReadDrives() {
  if (mFolders == nullptr)
    return;
  const QString chosen = currentText();
  clear();
  for (const std::string &drive : mFolders->Drives())
    addItem(ToQString(drive));
  setCurrentIndex(findText(chosen));
}

} // namespace turfdesk
