// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "conversion/dlgInvalidDir.h"

#include "conversion/RunLayoutConverter.h"
#include "ui_dlgInvalidDir.h"

namespace turfdesk {

dlgInvalidDir::dlgInvalidDir(QWidget *parent) : QDialog(parent) {
  Ui_dlgInvalidDir ui;
  ui.setupUi(this);
  setWindowTitle(InvalidDirectoryCaption);
  ui.Label1->SetColumns(70);
  ui.Label1->setText(InvalidDirectoryText);
  connect(ui.OKButton, &QPushButton::clicked, this, &QDialog::accept);
}

} // namespace turfdesk
