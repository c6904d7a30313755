// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/frmAbout.h"

#include "shell/ProgramIcon.h"
#include "shell/SystemInfo.h"
#include "ui_frmAbout.h"

namespace turfdesk {

frmAbout::frmAbout(SharedState &state, QWidget *parent) : QDialog(parent), mUi(std::make_unique<Ui_frmAbout>()) {
  mUi->setupUi(this);
  connect(mUi->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(mUi->cmdSysInfo, &QPushButton::clicked, this, [&state] { StartSysInfo(state); });
  Form_Load();
}

frmAbout::~frmAbout() = default;

void frmAbout::Form_Load() {
  setWindowTitle("About TurfDesk");
  mUi->lblVersion->setText("Version " TURFDESK_VERSION);
  mUi->lblDescription->SetColumns(60);
  mUi->picIcon->setPixmap(ProgramIcon().pixmap(mUi->picIcon->minimumSize(), devicePixelRatio()));
}

} // namespace turfdesk
