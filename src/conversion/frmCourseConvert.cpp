// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "conversion/frmCourseConvert.h"

#include "catalogue/BaseValues.h"
#include "catalogue/LoadLists.h"
#include "conversion/dlgInvalidDir.h"
#include "conversion/dlgWaitConvert.h"
#include "support/ErrorHandling.h"
#include "support/basVorinFile.h"
#include "ui_frmCourseConvert.h"
#include "widgets/FolderPicker.h"
#include "widgets/WindowFitter.h"

#include <QApplication>
#include <QEvent>
#include <QShowEvent>
#include <QSignalBlocker>

namespace turfdesk {

void frmCourseConvert::Open(SharedState &state, QWidget &mainWindow) {
  auto *form = mainWindow.findChild<frmCourseConvert *>(QString(), Qt::FindDirectChildrenOnly);
  // One that has left the screen is on its way out.
  if (form == nullptr || !form->isVisible())
    form = new frmCourseConvert(state, mainWindow);
  form->show();
  form->raise();
  form->activateWindow();
}

frmCourseConvert::frmCourseConvert(SharedState &state, QWidget &mainWindow)
    : QDialog(&mainWindow), mState(state), mMainWindow(mainWindow), mUi(std::make_unique<Ui_frmCourseConvert>()),
      mWait(std::make_unique<dlgWaitConvert>(this)) {
  mUi->setupUi(this);
  mUi->Label1->SetColumns(34);
  setAttribute(Qt::WA_DeleteOnClose);
  mUi->fileSource->SetPattern(ConvertiblePattern);
  connect(mUi->dirSource, &DirectoryList::Change, this,
          [this] { Guarded(mState, "", [this] { mUi->fileSource->SetPath(mUi->dirSource->Path()); }); });
  connect(mUi->btnConvert, &QPushButton::clicked, this, &frmCourseConvert::btnConvert_Click);
  connect(mUi->btnClose, &QPushButton::clicked, this, &QDialog::reject);
  Form_Load();
}

frmCourseConvert::~frmCourseConvert() = default;

void frmCourseConvert::Form_Load() {
  FolderPicker picker(*mUi->driveSource, *mUi->dirSource,
                      [this](const std::string &description) { TellAndKeepPlace(description); });
  Guarded(mState, "", [this, &picker] {
    mUi->fileSource->SetFolders(mState.platform.Folders());
    picker.SetFolders(mState.platform.Folders());
    const std::string target = ReadBaseValue(mState, TargetValue);
    if (DirExists(mState, target))
      picker.SetPath(target);
  });
}

void frmCourseConvert::TellAndKeepPlace(const std::string &description) {
  ShowError(mState, description);
  // The drive goes back to that of the folder, which has stayed open.
  const QSignalBlocker unchanged(mUi->driveSource);
  mUi->driveSource->SetDrive(mUi->dirSource->Path());
}

void frmCourseConvert::btnConvert_Click() {
  if (mConverting || LoadAgainIfChanged(mState))
    return;
  mConverting = true;
  const CommandAtWork atWork(mState);
  Guarded(mState, ConvertLabel, [this] { Convert(); });
  mConverting = false;
  if (isHidden())
    deleteLater();
}

void frmCourseConvert::NoticeOtherProcesses() {
  if (QApplication::activeModalWidget() == nullptr)
    LoadAgainIfChanged(mState);
}

bool frmCourseConvert::event(QEvent *event) {
  // Later, since no window opens well while another is being activated.
  if (event->type() == QEvent::WindowActivate)
    QMetaObject::invokeMethod(this, "NoticeOtherProcesses", Qt::QueuedConnection);
  return QDialog::event(event);
}

void frmCourseConvert::Convert() {
  // Files may have come and gone since the folder was opened.
  mUi->fileSource->SetPath(mUi->dirSource->Path());
  RunLayoutConverter(mState, {mUi->dirSource->Path(), static_cast<std::size_t>(mUi->fileSource->ListCount())}, *this);
}

void frmCourseConvert::done(int result) {
  if (!mConverting)
    QDialog::done(result);
}

void frmCourseConvert::showEvent(QShowEvent *event) {
  // Where the user has put it, it stays.
  if (!testAttribute(Qt::WA_Moved))
    PlaceBeside(*this, mMainWindow);
  QDialog::showEvent(event);
}

void frmCourseConvert::ShowInvalidDirectory() { dlgInvalidDir(this).exec(); }

void frmCourseConvert::ShowWait() {
  mWait->show();
  mInputBlock.emplace();
}

void frmCourseConvert::RefreshAll() {
  for (QWidget *window : {&mMainWindow, static_cast<QWidget *>(this), static_cast<QWidget *>(mWait.get())})
    window->repaint();
}

void frmCourseConvert::HideWait() {
  // Clicks and keys of the last minutes were not meant for what stands there now.
  DiscardPendingInput();
  mWait->hide();
  mInputBlock.reset();
}

// Not closed: that would delete the form while it is at work.
void frmCourseConvert::UnloadForm() { hide(); }

void frmCourseConvert::RefreshMain() { mMainWindow.repaint(); }

} // namespace turfdesk
