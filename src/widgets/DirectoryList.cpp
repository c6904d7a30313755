// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/DirectoryList.h"

#include "platform/RuntimeError.h"
#include "widgets/ItemToolTips.h"
#include "widgets/QtText.h"
#include "widgets/RowDelegate.h"

#include <QKeyEvent>
#include <QStyle>

#include <algorithm>
#include <vector>

namespace turfdesk {

namespace {

constexpr int PathRole = Qt::UserRole;
constexpr int DepthRole = Qt::UserRole + 1;
/// Pixels that a folder stands to the right of the one it lies in.
constexpr int Indentation = 12;

/// Draws entries the deeper in the tree the further to the right.
class IndentingDelegate final : public RowDelegate {
public:
  using RowDelegate::RowDelegate;

  void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    QStyleOptionViewItem indented = option;
    indented.rect.adjust(IndentationOf(option, index), 0, 0, 0);
    RowDelegate::paint(painter, indented, index);
  }

  QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    return RowDelegate::sizeHint(option, index) + QSize(IndentationOf(option, index), 0);
  }

private:
  /// Very deep folders keep two thirds of the control for their names.
  static int IndentationOf(const QStyleOptionViewItem &option, const QModelIndex &index) {
    return std::min(Indentation * index.data(DepthRole).toInt(), option.widget->width() / 3);
  }
};

/// The path of an entry of a folder. A root ends in a backslash already.
std::string Below(const std::string &folder, const std::string &name) {
  return folder.ends_with('\\') ? folder + name : folder + '\\' + name;
}

/// The folder's names from the root down, the root with its backslash.
std::vector<std::string> NamesOf(const std::string &path) {
  std::vector<std::string> names = {path.substr(0, 3)};
  for (std::size_t begin = 3; begin < path.size();) {
    const std::size_t end = std::min(path.find('\\', begin), path.size());
    names.push_back(path.substr(begin, end - begin));
    begin = end + 1;
  }
  return names;
}

} // namespace

DirectoryList::DirectoryList(QWidget *parent) : QListWidget(parent) {
  setItemDelegate(new IndentingDelegate(this));
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(this, &QListWidget::itemDoubleClicked, this, &DirectoryList::OpenItem);
}

void DirectoryList::SetFolders(FolderReader &folders) {
  mFolders = &folders;
  SetPath(folders.StartFolder());
}

void DirectoryList::SetPath(std::string_view folder) {
  const std::string path = mFolders->CanonicalFolder(folder);
  const std::vector<std::string> subfolders = mFolders->Subfolders(path);
  const bool another = path != mPath;
  mPath = path;
  ShowEntries(path, subfolders);
  if (another)
    emit Change();
}

std::string DirectoryList::HighlightedPath() const {
  const QList<QListWidgetItem *> highlighted = selectedItems();
  return highlighted.isEmpty() ? mPath : ToUtf8(highlighted.first()->data(PathRole).toString());
}

void DirectoryList::ShowEntries(const std::string &path, const std::vector<std::string> &subfolders) {
  clear();
  int depth = 0;
  std::string ancestor;
  for (const std::string &name : NamesOf(path)) {
    ancestor = depth == 0 ? name : Below(ancestor, name);
    AddEntry(ancestor, name, depth++, true);
  }
  setCurrentRow(depth - 1);
  for (const std::string &name : subfolders)
    AddEntry(Below(path, name), name, depth, false);
  // As many of the children as fit, under the folder that they lie in.
  scrollToItem(item(std::max(depth - 2, 0)), PositionAtTop);
}

void DirectoryList::AddEntry(const std::string &path, const std::string &name, int depth, bool open) {
  const QIcon icon = style()->standardIcon(open ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon, nullptr, this);
  auto *entry = new QListWidgetItem(icon, OneLine(name), this);
  entry->setData(PathRole, ToQString(path));
  entry->setData(DepthRole, depth);
}

void DirectoryList::OpenItem(const QListWidgetItem *item) {
  const std::string path = ToUtf8(item->data(PathRole).toString());
  try {
    SetPath(path);
  } catch (const RuntimeError &error) {
    emit OpenFailed(ToQString(error.Description()));
  }
}

void DirectoryList::keyPressEvent(QKeyEvent *event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && currentItem() != nullptr) {
    OpenItem(currentItem());
    return;
  }
  QListWidget::keyPressEvent(event);
}

bool DirectoryList::viewportEvent(QEvent *event) {
  return ShowWholeTextOfItem(*this, event) || QListWidget::viewportEvent(event);
}

} // namespace turfdesk
