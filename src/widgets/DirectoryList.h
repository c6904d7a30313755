// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FolderReader.h"
#include "widgets/TypeAhead.h"

#include <QListWidget>

#include <string>
#include <string_view>

namespace turfdesk {

/// Shows where a folder lies: its ancestors from the drive's root down, the folder itself, and the folders in it. A
/// highlighted entry need not be open; a double click or Enter opens it.
class DirectoryList final : public QListWidget {
  Q_OBJECT

public:
  explicit DirectoryList(QWidget *parent = nullptr);

  /// Opens the folder in which lists start. folders must outlive the control.
  void SetFolders(FolderReader &folders);

  /// The open folder, a full path without a trailing backslash except that of a root; "" when none is open.
  const std::string &Path() const { return mPath; }
  /// Opens a folder, read anew; "C:" means the drive's root. Throws what FolderReader throws; the place is then
  /// unchanged.
  void SetPath(std::string_view folder);

  /// The folder of the highlighted entry, be it open or not; with none highlighted, the open folder.
  std::string HighlightedPath() const;

  void keyboardSearch(const QString &typed) override { mTypeAhead.Search(*this, typed); }

signals:
  /// Another folder is open.
  void Change();
  /// A folder that the user wanted to open could not be opened, for this reason.
  void OpenFailed(const QString &description);

protected:
  void keyPressEvent(QKeyEvent *event) override;
  bool viewportEvent(QEvent *event) override;

private:
  void OpenItem(const QListWidgetItem *item);
  void AddEntry(const std::string &path, const std::string &name, int depth, bool open);
  void ShowEntries(const std::string &path, const std::vector<std::string> &subfolders);

  FolderReader *mFolders = nullptr;
  std::string mPath;
  TypeAhead mTypeAhead;
};

} // namespace turfdesk
