// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "packaging/RunCompress.h"
#include "platform/ListView.h"
#include "support/SharedState.h"

#include <QDialog>

#include <memory>

namespace turfdesk {

class Ui_frmCourseCompress;

/// The compress dialog: what goes into the package of a course, and how it is called. It stays loaded while the status
/// window that it opens does the work.
class frmCourseCompress final : public QDialog {
  Q_OBJECT

public:
  /// Filled with what ProposeCompress gives for the row of the course, and throws what that throws.
  frmCourseCompress(SharedState &state, const Row &course, QWidget *parent);
  ~frmCourseCompress() override;

  /// What is chosen at this moment.
  CompressRequest Request() const;

protected:
  void closeEvent(QCloseEvent *event) override;

private:
  void Fill(const CompressRequest &proposed);
  void btnFilename_Click();
  void btnCompress_Click();

  SharedState &mState;
  ListView mLibraries;
  std::unique_ptr<Ui_frmCourseCompress> mUi;
};

/// Opens the dialog over the main window, for the course that is selected there. Where there is none, or it may not be
/// compressed, the user is told.
void OpenCompressDialog(SharedState &state, QWidget &window);

} // namespace turfdesk
