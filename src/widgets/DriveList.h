// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FolderReader.h"

#include <QComboBox>

#include <string>
#include <string_view>

namespace turfdesk {

/// Offers the drives. What the chosen one holds is not looked at.
class DriveList final : public QComboBox {
  Q_OBJECT

public:
  explicit DriveList(QWidget *parent = nullptr);

  /// Lists the drives and chooses that of the folder in which lists start. folders must outlive the control.
  void SetFolders(FolderReader &folders);

  /// The chosen drive, as "C:"; "" when there is none.
  std::string Drive() const;
  /// Chooses the drive that a path begins with. Throws RuntimeError 68 when there is no such drive.
  void SetDrive(std::string_view path);

  void showPopup() override;

signals:
  /// Another drive is chosen, or the user has chosen the same one again.
  void Change();

private:
  void ReadDrives();

  FolderReader *mFolders = nullptr;
};

} // namespace turfdesk
