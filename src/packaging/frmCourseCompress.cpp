// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "packaging/frmCourseCompress.h"

#include "catalogue/Selection.h"
#include "packaging/dlgUncheckedLibs.h"
#include "packaging/frmStatusCompress.h"
#include "support/ErrorHandling.h"
#include "support/StringTable.h"
#include "support/basVorinFile.h"
#include "ui_frmCourseCompress.h"
#include "widgets/FileDialog.h"
#include "widgets/QtText.h"

#include <QCloseEvent>

namespace turfdesk {

namespace {

std::array<PathBox *, 4> MediaBoxes(const Ui_frmCourseCompress &ui) {
  return {ui.txtMedia_0, ui.txtMedia_1, ui.txtMedia_2, ui.txtMedia_3};
}

} // namespace

frmCourseCompress::frmCourseCompress(SharedState &state, const Row &course, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), mState(state),
      mUi(std::make_unique<Ui_frmCourseCompress>()) {
  mUi->setupUi(this);
  setWindowTitle(OneLine(CompressCaption(course)));
  mUi->btnFilename->setIcon(style()->standardIcon(QStyle::SP_DirOpenIcon, nullptr, this));
  Fill(ProposeCompress(mState, course, mLibraries));
  mUi->lstLibraries->ShowColumns();
  mUi->lstLibraries->SetList(mLibraries, {"Name", "Filename"});
  connect(mUi->btnFilename, &QPushButton::clicked, this, &frmCourseCompress::btnFilename_Click);
  connect(mUi->lstLibraries, &RowListWidget::ItemCheck, this,
          [this](int row) { LibraryCheckChanged(mState, mLibraries.At(static_cast<std::size_t>(row))); });
  connect(mUi->btnCompress, &QPushButton::clicked, this, &frmCourseCompress::btnCompress_Click);
  connect(mUi->btnClose, &QPushButton::clicked, this, &QDialog::reject);
}

frmCourseCompress::~frmCourseCompress() {
  // It follows the list, which would be gone before it.
  delete mUi->lstLibraries;
}

void frmCourseCompress::Fill(const CompressRequest &proposed) {
  mUi->txtFilename->SetPath(proposed.packageName);
  mUi->txtCourse->SetPath(proposed.courseFile);
  const auto boxes = MediaBoxes(*mUi);
  for (std::size_t i = 0; i < boxes.size(); ++i)
    boxes[i]->SetPath(proposed.media[i]);
}

CompressRequest frmCourseCompress::Request() const {
  CompressRequest request{
      TypedPath(mState, mUi->txtFilename->Path()), mUi->txtCourse->Path(), {}, LibrariesOf(mLibraries)};
  const auto boxes = MediaBoxes(*mUi);
  for (std::size_t i = 0; i < boxes.size(); ++i)
    request.media[i] = boxes[i]->Path();
  return request;
}

void frmCourseCompress::closeEvent(QCloseEvent *event) { event->ignore(); }

void frmCourseCompress::btnFilename_Click() {
  // The one error there can be, besides Cancel, which is none here: a file that no Windows path can name.
  Guarded(mState, "", [this] {
    const std::string path = TypedPath(mState, mUi->txtFilename->Path());
    const auto chosen = ShowOpenDialog(
        *this, mState.platform,
        {LoadResString(StringId::SelectCoursePackage), GetPathPart(mState, path), GetFilePart(mState, path), ".hlz",
         LoadResString(StringId::CoursePackage) + " (*.hlz)|*.hlz|" + LoadResString(StringId::AllFiles) + " (*.*)|*.*",
         GetPathPart(mState, mUi->txtCourse->Path())});
    if (chosen)
      mUi->txtFilename->SetPath(*chosen);
  });
}

void frmCourseCompress::btnCompress_Click() {
  if (HasUncheckedLibrary(mLibraries)) {
    dlgUncheckedLibs question(mState, *this);
    question.exec();
    return;
  }
  hide();
  frmStatusCompress status(mState, *this, parentWidget());
  status.exec();
}

void OpenCompressDialog(SharedState &state, QWidget &window) {
  Row *course = SelectedRow(state, ActiveCourses);
  if (course == nullptr || !CourseMayBeCompressed(state, *course))
    return;
  frmCourseCompress dialog(state, *course, &window);
  dialog.exec();
}

} // namespace turfdesk
