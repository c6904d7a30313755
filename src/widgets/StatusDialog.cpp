// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/StatusDialog.h"

#include "ui_StatusDialog.h"
#include "widgets/FirstActivation.h"
#include "widgets/PendingInput.h"

#include <QCloseEvent>

namespace turfdesk {

StatusDialog::StatusDialog(const QString &caption, BinaryFiles &files, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      mUi(std::make_unique<Ui_StatusDialog>()) {
  mUi->setupUi(this);
  setWindowTitle(caption);
  mUi->lblStatus_1->SetLines(2);
  mUi->Animation1->SetFiles(files);
  QSizePolicy policy = mUi->btnClose->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  mUi->btnClose->setSizePolicy(policy);
  mUi->btnClose->hide();
  connect(mUi->btnClose, &QPushButton::clicked, this, &QDialog::reject);
}

StatusDialog::~StatusDialog() = default;

void StatusDialog::SetWork(const std::function<void()> &work) { AtFirstActivation(*this, work); }

Label &StatusDialog::FileLabel() { return *mUi->lblStatus_0; }

Label &StatusDialog::RouteLabel() { return *mUi->lblStatus_1; }

Animation &StatusDialog::WorkAnimation() { return *mUi->Animation1; }

Progress &StatusDialog::WorkProgress() { return *mUi->progressBar; }

void StatusDialog::ShowCloseButton() {
  // A key pressed while work was going on must not close the window before the user has seen the verdict.
  DiscardPendingInput();
  mUi->btnClose->show();
  mUi->btnClose->setFocus();
}

bool StatusDialog::MayClose() const { return mUi->btnClose->isVisibleTo(this); }

void StatusDialog::done(int result) {
  if (MayClose())
    QDialog::done(result);
}

void StatusDialog::closeEvent(QCloseEvent *event) {
  if (MayClose())
    QDialog::closeEvent(event);
  else
    event->ignore();
}

} // namespace turfdesk
