// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <QDialog>

#include <memory>

namespace turfdesk {

class frmCourseCompress;
class Ui_dlgUncheckedLibs;

/// Asks whether to go on where a library that the course needs has been left out. Yes writes the package, over the
/// compress dialog, which stays as it is; anything else does nothing.
class dlgUncheckedLibs final : public QDialog {
  Q_OBJECT

public:
  dlgUncheckedLibs(SharedState &state, frmCourseCompress &dialog);
  ~dlgUncheckedLibs() override;

private:
  void Yes_Click();

  SharedState &mState;
  frmCourseCompress &mDialog;
  std::unique_ptr<Ui_dlgUncheckedLibs> mUi;
};

} // namespace turfdesk
