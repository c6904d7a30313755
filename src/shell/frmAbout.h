// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <QDialog>

#include <memory>

namespace turfdesk {

class Ui_frmAbout;

/// The about box: title, version, legal notice, and the way to the platform's system information tool.
class frmAbout final : public QDialog {
  Q_OBJECT

public:
  frmAbout(SharedState &state, QWidget *parent);
  ~frmAbout() override;

private:
  void Form_Load();

  std::unique_ptr<Ui_frmAbout> mUi;
};

} // namespace turfdesk
