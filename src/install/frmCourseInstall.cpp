// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/frmCourseInstall.h"

#include "install/frmStatusInstall.h"
#include "platform/CaseFold.h"
#include "support/ErrorHandling.h"
#include "support/StringTable.h"
#include "support/basVorinFile.h"
#include "ui_frmCourseInstall.h"
#include "widgets/QtText.h"

namespace turfdesk {

frmCourseInstall::frmCourseInstall(SharedState &state, QWidget *parent)
    : QDialog(parent), mState(state), mUi(std::make_unique<Ui_frmCourseInstall>()) {
  mUi->setupUi(this);
  mUi->fileSource->SetPattern(InstallablePattern);
  ConnectPickers();
  connect(mUi->btnInstall, &QPushButton::clicked, this, &frmCourseInstall::btnInstall_Click);
  connect(mUi->btnClose, &QPushButton::clicked, this, &QDialog::reject);
  Form_Load();
}

frmCourseInstall::~frmCourseInstall() = default;

void frmCourseInstall::ConnectPickers() {
  ConnectDrive(*mUi->driveSource, *mUi->dirSource);
  ConnectDrive(*mUi->driveDestination, *mUi->dirDestination);
  connect(mUi->dirSource, &DirectoryList::Change, this,
          [this] { Guarded(mState, "", [this] { mUi->fileSource->SetPath(mUi->dirSource->Path()); }); });
}

void frmCourseInstall::ConnectDrive(DriveList &drive, DirectoryList &directory) {
  connect(&drive, &DriveList::Change, this, [this, &drive, &directory] {
    Guarded(mState, "", [&drive, &directory] { directory.SetPath(drive.Drive()); });
  });
  connect(&directory, &DirectoryList::OpenFailed, this,
          [this](const QString &description) { ShowError(mState, ToUtf8(description)); });
}

void frmCourseInstall::Form_Load() {
  std::string preselected;
  if (!mState.commandFile.empty()) {
    mState.defaultDir = GetPathPart(mState, mState.commandFile);
    preselected = GetFilePart(mState, mState.commandFile);
    mState.commandFile.clear();
  }
  Guarded(mState, "", [&] {
    // Where the folder is gone, a file of the same name elsewhere is not the one that was meant.
    if (OpenStartFolders() && !preselected.empty())
      Preselect(preselected);
  });
}

bool frmCourseInstall::OpenStartFolders() {
  FolderReader &folders = mState.platform.Folders();
  mUi->fileSource->SetFolders(folders);
  mUi->driveSource->SetFolders(folders);
  mUi->dirSource->SetFolders(folders);
  mUi->driveDestination->SetFolders(folders);
  mUi->dirDestination->SetFolders(folders);
  if (!DirExists(mState, mState.defaultDir))
    return false;
  mUi->driveSource->SetDrive(mState.defaultDir);
  mUi->dirSource->SetPath(mState.defaultDir);
  mUi->driveDestination->SetDrive(mState.defaultDir);
  mUi->dirDestination->SetPath(mState.defaultDir);
  return true;
}

void frmCourseInstall::Preselect(const std::string &fileName) {
  FileList &files = *mUi->fileSource;
  for (int i = 0; i < files.ListCount(); ++i) {
    if (!EqualsIgnoringCase(files.List(i), fileName))
      continue;
    files.SetSelected(i, true);
    files.setFocus();
    return;
  }
}

InstallRequest frmCourseInstall::Request() const {
  const FileList &files = *mUi->fileSource;
  InstallRequest request{mUi->dirSource->Path(), mUi->dirDestination->Path(), {}};
  for (int i = 0; i < files.ListCount(); ++i)
    if (files.Selected(i))
      request.files.push_back(files.List(i));
  return request;
}

void frmCourseInstall::btnInstall_Click() {
  if (Request().files.empty()) {
    ShowInfo(mState, LoadResString(StringId::NoFilesSelected));
    return;
  }
  frmStatusInstall status(mState, *this);
  status.exec();
}

} // namespace turfdesk
