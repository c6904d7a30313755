// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/frmCourseMove.h"

#include "manage/frmStatusMove.h"
#include "support/Prompts.h"
#include "support/basVorinFile.h"
#include "ui_frmCourseMove.h"
#include "widgets/FolderPicker.h"
#include "widgets/QtText.h"

namespace turfdesk {

frmCourseMove::frmCourseMove(SharedState &state, const Row &item, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), mState(state),
      mItems(state.activeList == ActiveCourses ? state.lstCourses : state.lstLibraries), mItemKey(item.Key()),
      mUi(std::make_unique<Ui_frmCourseMove>()) {
  mUi->setupUi(this);
  setWindowTitle(OneLine(MoveCaption(state, item)));
  connect(mUi->btnMove, &QPushButton::clicked, this, &frmCourseMove::btnMove_Click);
  connect(mUi->btnClose, &QPushButton::clicked, this, &QDialog::reject);
  Form_Load();
}

frmCourseMove::~frmCourseMove() = default;

void frmCourseMove::Form_Load() {
  FolderPicker destination(*mUi->driveDestination, *mUi->dirDestination,
                           [this](const std::string &description) { ShowError(mState, description); });
  destination.OfferNewFolder(*mUi->btnNewFolder);
  destination.SetFolders(mState.platform.Folders());
  if (DirExists(mState, mState.defaultDir))
    destination.SetPath(mState.defaultDir);
}

MoveRequest frmCourseMove::Request() const {
  return {mItems.FindKey(mItemKey), mUi->dirDestination->HighlightedPath()};
}

void frmCourseMove::btnMove_Click() {
  // Hidden and not closed: the status window asks this one where to when it begins.
  hide();
  frmStatusMove status(mState, *this);
  status.exec();
  accept();
}

} // namespace turfdesk
