// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/FileList.h"

#include "widgets/ItemToolTips.h"
#include "widgets/QtText.h"
#include "widgets/RowDelegate.h"

namespace turfdesk {

namespace {

/// The name itself, of which the text may show some characters as symbols.
constexpr int NameRole = Qt::UserRole;

} // namespace

FileList::FileList(QWidget *parent) : QListWidget(parent) {
  setItemDelegate(new RowDelegate(this));
  setSelectionMode(ExtendedSelection);
  setTextElideMode(Qt::ElideMiddle);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void FileList::SetPath(std::string_view folder) {
  clear();
  mPath = folder;
  for (const std::string &file : mFolders->Files(folder, mPattern)) {
    auto *entry = new QListWidgetItem(OneLine(file), this);
    entry->setData(NameRole, ToQString(file));
  }
}

std::string FileList::List(int index) const { return ToUtf8(item(index)->data(NameRole).toString()); }

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
