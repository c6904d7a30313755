// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "packaging/dlgUncheckedLibs.h"

#include "packaging/RunCompress.h"
#include "packaging/frmCourseCompress.h"
#include "packaging/frmStatusCompress.h"
#include "support/StringTable.h"
#include "ui_dlgUncheckedLibs.h"
#include "widgets/QtText.h"

namespace turfdesk {

dlgUncheckedLibs::dlgUncheckedLibs(SharedState &state, frmCourseCompress &dialog)
    : QDialog(&dialog), mState(state), mDialog(dialog), mUi(std::make_unique<Ui_dlgUncheckedLibs>()) {
  mUi->setupUi(this);
  setWindowTitle(UncheckedLibrariesTitle);
  mUi->txtLibUnchecked->SetColumns(80);
  mUi->txtLibUnchecked->setText(ToQString(LoadResString(StringId::RequiredLibrariesUnchecked)));
  connect(mUi->Yes, &QPushButton::clicked, this, &dlgUncheckedLibs::Yes_Click);
  connect(mUi->No, &QPushButton::clicked, this, &QDialog::reject);
}

dlgUncheckedLibs::~dlgUncheckedLibs() = default;

void dlgUncheckedLibs::Yes_Click() {
  hide();
  frmStatusCompress status(mState, mDialog, &mDialog);
  status.exec();
}

} // namespace turfdesk
