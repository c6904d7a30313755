// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "conversion/dlgWaitConvert.h"

#include "conversion/RunLayoutConverter.h"
#include "ui_dlgWaitConvert.h"

namespace turfdesk {

dlgWaitConvert::dlgWaitConvert(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
  Ui_dlgWaitConvert ui;
  ui.setupUi(this);
  ui.Label1->setText(ConversionWaitText);
}

} // namespace turfdesk
