// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/frmCourseProperties.h"

#include "catalogue/Catalogue.h"
#include "platform/RuntimeError.h"
#include "support/ErrorHandling.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"
#include "ui_frmCourseProperties.h"
#include "widgets/FileDialog.h"
#include "widgets/QtText.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace turfdesk {

frmCourseProperties::frmCourseProperties(SharedState &state, const Row &item, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), mState(state), mItemKey(item.Key()),
      mUi(std::make_unique<Ui_frmCourseProperties>()) {
  mUi->setupUi(this);
  setWindowTitle(OneLine(AddQuotes(item.Text()) + " " + LoadResString(StringId::CourseProperties)));
  mMedia = {Media{mUi->txtMedia_0, mUi->btnMedia_0, {}}, Media{mUi->txtMedia_1, mUi->btnMedia_1, {}},
            Media{mUi->txtMedia_3, mUi->btnMedia_3, {}}};
  for (std::size_t i = 0; i < mMedia.size(); ++i)
    ConnectMedia(CourseMediaKinds[i], mMedia[i]);
  connect(mUi->btnClose, &QPushButton::clicked, this, &QDialog::reject);
  mUi->btnClose->setFocus();
  // Before the window shows, so that nothing can be typed into a box that is about to be filled.
  Form_Activate();
}

frmCourseProperties::~frmCourseProperties() = default;

void frmCourseProperties::ConnectMedia(const CourseMedia &kind, Media &media) {
  media.btnMedia->setIcon(style()->standardIcon(QStyle::SP_DirOpenIcon, nullptr, this));
  connect(media.txtMedia, &PathBox::LostFocus, this, [this, &media] { txtMedia_LostFocus(media); });
  connect(media.btnMedia, &QPushButton::clicked, this, [this, &kind, &media] { btnMedia_Click(kind, media); });
}

Row &frmCourseProperties::Item() const {
  Row *item = mState.lstCourses.FindKey(mItemKey);
  if (item == nullptr)
    throw RuntimeError(ErrorNumber::ObjectNotSet);
  return *item;
}

void frmCourseProperties::Form_Activate() {
  Guarded(mState, "frmCourseProperties.Form_Activate(): ", [this] {
    const Row &item = Item();
    mUi->txtFilename->SetPath(item.SubItems(column::Filename));
    mUi->txtSize->setText(ToQString(FormatKB(item.SubItems(column::Size))));
    for (std::size_t i = 0; i < mMedia.size(); ++i) {
      mMedia[i].txtMedia->SetPath(item.SubItems(CourseMediaKinds[i].column));
      mMedia[i].filledWith = mMedia[i].txtMedia->Path();
    }
    std::vector<std::string> names;
    for (const std::string &libraryKey : ParseList(item.SubItems(column::Libraries)))
      names.push_back(GetLibraryName(mState, libraryKey));
    mUi->lstLibraries->SetNames(std::move(names));
  });
}

void frmCourseProperties::btnMedia_Click(const CourseMedia &kind, const Media &media) {
  // The one error there can be, besides Cancel, which is none here: a file that no path in the catalogue can name.
  Guarded(mState, "", [this, &kind, &media] {
    const std::string path = TypedPath(mState, media.txtMedia->Path());
    const std::optional<std::string> chosen = ShowOpenDialog(
        *this, mState.platform,
        {LoadResString(kind.dialogTitle), GetPathPart(mState, path), GetFilePart(mState, path), kind.defaultExtension,
         LoadResString(kind.description) + kind.filter, GetPathPart(mState, mUi->txtFilename->Path())});
    if (!chosen)
      return;
    mDirty = true;
    media.txtMedia->SetPath(*chosen);
  });
}

void frmCourseProperties::txtMedia_LostFocus(const Media &media) {
  mDirty = mDirty || media.txtMedia->Path() != media.filledWith;
}

void frmCourseProperties::done(int result) {
  // A box in use loses the focus with the window, also where a key closes it and leaves the focus in place: what the
  // user has typed is saved.
  for (const Media &media : mMedia)
    txtMedia_LostFocus(media);
  Save();
  QDialog::done(result);
}

void frmCourseProperties::Save() {
  if (!mDirty)
    return;
  mDirty = false;
  std::array<std::string, CourseMediaKinds.size()> paths;
  std::ranges::transform(mMedia, paths.begin(),
                         [this](const Media &media) { return TypedPath(mState, media.txtMedia->Path()); });
  Guarded(mState, "frmCourseProperties.Save(): ", [&] { SaveCourseMedia(mState, Item(), paths); });
}

} // namespace turfdesk
