// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FolderReader.h"
#include "widgets/TypeAhead.h"

#include <QListWidget>

#include <string>
#include <string_view>

namespace turfdesk {

/// Lists the files of a folder that fit a pattern. Several can be selected, with the shift and control keys.
class FileList final : public QListWidget {
  Q_OBJECT

public:
  explicit FileList(QWidget *parent = nullptr);

  /// Where the files are read; nothing is shown yet. folders must outlive the control.
  void SetFolders(FolderReader &folders) { mFolders = &folders; }
  /// What FolderReader::Files takes; counts from the next SetPath on.
  void SetPattern(std::string_view pattern) { mPattern = pattern; }

  const std::string &Path() const { return mPath; }
  /// Lists a folder, read anew, with nothing selected. Throws what FolderReader throws; the list is then empty.
  void SetPath(std::string_view folder);

  int ListCount() const { return count(); }
  /// The file name at a 0-based index below ListCount.
  std::string List(int index) const;
  bool Selected(int index) const;
  void SetSelected(int index, bool selected);

  void keyboardSearch(const QString &typed) override { mTypeAhead.Search(*this, typed); }

protected:
  bool viewportEvent(QEvent *event) override;

private:
  FolderReader *mFolders = nullptr;
  std::string mPattern = "*";
  std::string mPath;
  TypeAhead mTypeAhead;
};

} // namespace turfdesk
