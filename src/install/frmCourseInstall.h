// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "install/RunInstall.h"
#include "support/SharedState.h"

#include <QDialog>

#include <memory>
#include <string>

namespace turfdesk {

class Ui_frmCourseInstall;

/// The install dialog: the files to install and the directory to install them to. It stays loaded, selection included,
/// while the status window that it opens does the work.
class frmCourseInstall final : public QDialog {
  Q_OBJECT

public:
  /// Takes up state.commandFile and the further ones: opens on its directory, makes that the one to start in from now
  /// on, and selects those of the files that lie there.
  frmCourseInstall(SharedState &state, QWidget *parent);
  ~frmCourseInstall() override;

  /// What is chosen at this moment.
  InstallRequest Request() const;

private:
  void Form_Load();
  void btnInstall_Click();
  /// Puts the pickers where lists start, then where the dialogs start.
  /// False when the folder to start in is gone; the lists then stay where they begin.
  bool OpenStartFolders();
  void Preselect(const std::string &fileName);

  SharedState &mState;
  std::unique_ptr<Ui_frmCourseInstall> mUi;
};

} // namespace turfdesk
