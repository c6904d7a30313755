// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FolderReader.h"

#include <functional>
#include <string>
#include <string_view>

class QPushButton;

namespace turfdesk {

class DirectoryList;
class DriveList;

/// A drive list that leads a directory list: choosing a drive opens its root.
class FolderPicker final {
public:
  /// Connects the lists, for as long as they live; both must outlive this object. Why the user's choice of a drive or
  /// directory could not be opened is handed to tell, in words; the directory list then stays where it was, and the
  /// drive list keeps the new drive.
  FolderPicker(DriveList &drives, DirectoryList &directories, const std::function<void(const std::string &)> &tell);

  /// Lets the user make folders in the open one, by the button and by a context menu of the directory list. For as long
  /// as both live.
  void OfferNewFolder(QPushButton &button);

  /// Puts both where lists start. folders must outlive the lists. Throws what FolderReader throws.
  void SetFolders(FolderReader &folders);
  /// Chooses the drive of a folder and opens the folder. Throws what DriveList and DirectoryList throw.
  void SetPath(std::string_view folder);

private:
  DriveList &mDrives;
  DirectoryList &mDirectories;
  std::function<void(const std::string &)> mTell;
};

} // namespace turfdesk
