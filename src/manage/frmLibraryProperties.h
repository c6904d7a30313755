// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "support/SharedState.h"

#include <QDialog>

#include <memory>

namespace turfdesk {

class Ui_frmLibraryProperties;

/// Shows a library and the courses that use it.
class frmLibraryProperties final : public QDialog {
  Q_OBJECT

public:
  /// item is a row of the libraries. It is only looked at here.
  frmLibraryProperties(SharedState &state, const Row &item, QWidget *parent);
  ~frmLibraryProperties() override;

private:
  void Form_Activate(const Row &item);

  SharedState &mState;
  std::unique_ptr<Ui_frmLibraryProperties> mUi;
};

} // namespace turfdesk
