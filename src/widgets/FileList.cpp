// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/FileList.h"

#include "widgets/ItemToolTips.h"
#include "widgets/QtText.h"
#include "widgets/RowDelegate.h"

namespace turfdesk {

FileList::FileList(QWidget *parent) : QListWidget(parent) {
  setItemDelegate(new RowDelegate(this));
  setSelectionMode(ExtendedSelection);
  setTextElideMode(Qt::ElideMiddle);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void FileList::SetPath(std::string_view folder) {
  clear();
  mPath = folder;
  for (const std::string &file : mFolders->Files(folder, mPattern))
    addItem(ToQString(file));
}

std::string FileList::List(int index) const { return ToUtf8(item(index)->text()); }

bool FileList::Selected(int index) const { return item(index)->isSelected(); }

void FileList::SetSelected(int index, bool selected) {
  item(index)->setSelected(selected);
  if (selected)
    setCurrentItem(item(index), QItemSelectionModel::NoUpdate);
}

bool FileList::viewportEvent(QEvent *event) {
  return ShowWholeTextOfItem(*this, event) || QListWidget::viewportEvent(event);
}

} // namespace turfdesk
