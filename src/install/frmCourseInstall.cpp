// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/frmCourseInstall.h"

#include "install/frmStatusInstall.h"
#include "platform/CaseFold.h"
#include "support/ErrorHandling.h"
#include "support/StringTable.h"
#include "support/basVorinFile.h"
#include "ui_frmCourseInstall.h"
#include "widgets/FolderPicker.h"

#include <utility>
#include <vector>

namespace turfdesk {

frmCourseInstall::frmCourseInstall(SharedState &state, QWidget *parent)
    : QDialog(parent), mState(state), mUi(std::make_unique<Ui_frmCourseInstall>()) {
  mUi->setupUi(this);
  mUi->fileSource->SetPattern(InstallablePattern);
  connect(mUi->dirSource, &DirectoryList::Change, this,
          [this] { Guarded(mState, "", [this] { mUi->fileSource->SetPath(mUi->dirSource->Path()); }); });
  mUi->lblDestination->SetLines(3);
  connect(mUi->dirDestination, &DirectoryList::Change, this,
          [this] { mUi->lblDestination->SetCaption("The files will go to " + mUi->dirDestination->Path()); });
  connect(mUi->btnInstall, &QPushButton::clicked, this, &frmCourseInstall::btnInstall_Click);
  connect(mUi->btnClose, &QPushButton::clicked, this, &QDialog::reject);
  Form_Load();
}

frmCourseInstall::~frmCourseInstall() = default;

void frmCourseInstall::Form_Load() {
  std::vector<std::string> preselected;
  if (!mState.commandFile.empty()) {
    mState.defaultDir = GetPathPart(mState, mState.commandFile);
    preselected = std::move(mState.furtherCommandFiles);
    preselected.insert(preselected.begin(), std::exchange(mState.commandFile, ""));
    mState.furtherCommandFiles.clear();
  }
  Guarded(mState, "", [&] {
    // Where the folder is gone, a file of the same name elsewhere is not the one that was meant.
    if (!OpenStartFolders())
      return;
    for (const std::string &file : preselected)
      if (IsSameFolder(mState, GetPathPart(mState, file), mState.defaultDir))
        Preselect(GetFilePart(mState, file));
  });
}

bool frmCourseInstall::OpenStartFolders() {
  const auto tell = [this](const std::string &description) { ShowError(mState, description); };
  FolderPicker source(*mUi->driveSource, *mUi->dirSource, tell);
  FolderPicker destination(*mUi->driveDestination, *mUi->dirDestination, tell);
  destination.OfferNewFolder(*mUi->btnNewFolder);
  FolderReader &folders = mState.platform.Folders();
  mUi->fileSource->SetFolders(folders);
  source.SetFolders(folders);
  destination.SetFolders(folders);
  if (!DirExists(mState, mState.defaultDir))
    return false;
  source.SetPath(mState.defaultDir);
  destination.SetPath(mState.defaultDir);
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
