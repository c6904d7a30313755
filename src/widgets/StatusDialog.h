// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/StatusWindow.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace turfdesk {

class Ui_StatusDialog;

/// The common window of long work. It does the work itself, once, when it is shown for the first time; until the work
/// has made btnClose visible, nothing closes the window.
class StatusDialog : public QDialog, public StatusWindow {
  Q_OBJECT

public:
  /// files, from which the animation is read, must outlive the window.
  StatusDialog(const QString &caption, BinaryFiles &files, QWidget *parent);
  ~StatusDialog() override;

  /// What is to be done. Set before the window is shown.
  void SetWork(const std::function<void()> &work);

  Label &FileLabel() override;
  Label &RouteLabel() override;
  Animation &WorkAnimation() override;
  Progress &WorkProgress() override;
  void ShowCloseButton() override;

  void done(int result) override;

protected:
  void closeEvent(QCloseEvent *event) override;

private:
  bool MayClose() const;

  std::unique_ptr<Ui_StatusDialog> mUi;
};

} // namespace turfdesk
