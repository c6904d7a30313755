// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "conversion/RunLayoutConverter.h"
#include "support/SharedState.h"
#include "widgets/PendingInput.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace turfdesk {

class dlgWaitConvert;
class Ui_frmCourseConvert;

/// The window in which the user chooses the folder of an old course and has it converted. It stands beside the main
/// window, which stays usable until the converter is at work.
class frmCourseConvert final : public QDialog, private ConversionWindows {
  Q_OBJECT

public:
  /// Brings the one form of a main window to the front, making it if it is not there. It deletes itself when closed.
  static void Open(SharedState &state, QWidget &mainWindow);

  ~frmCourseConvert() override;

  /// Closes the form, except while it is converting.
  void done(int result) override;

protected:
  bool event(QEvent *event) override;
  void showEvent(QShowEvent *event) override;

private:
  frmCourseConvert(SharedState &state, QWidget &mainWindow);

  void Form_Load();
  void btnConvert_Click();
  Q_INVOKABLE void NoticeOtherProcesses();
  void Convert();
  void TellAndKeepPlace(const std::string &description);

  void ShowInvalidDirectory() override;
  void ShowWait() override;
  void RefreshAll() override;
  void HideWait() override;
  void UnloadForm() override;
  void RefreshMain() override;

  SharedState &mState;
  QWidget &mMainWindow;
  std::unique_ptr<Ui_frmCourseConvert> mUi;
  std::unique_ptr<dlgWaitConvert> mWait;
  std::optional<InputBlock> mInputBlock;
  bool mConverting = false;
};

} // namespace turfdesk
