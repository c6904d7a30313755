// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/frmLibraryProperties.h"

#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "support/ErrorHandling.h"
#include "support/StringTable.h"
#include "support/basVorinString.h"
#include "ui_frmLibraryProperties.h"
#include "widgets/QtText.h"

#include <string>
#include <vector>

namespace turfdesk {

frmLibraryProperties::frmLibraryProperties(SharedState &state, const Row &item, QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), mState(state),
      mUi(std::make_unique<Ui_frmLibraryProperties>()) {
  mUi->setupUi(this);
  setWindowTitle(OneLine(AddQuotes(item.Text()) + " " + LoadResString(StringId::LibraryProperties)));
  connect(mUi->btnClose, &QPushButton::clicked, this, &QDialog::reject);
  mUi->btnClose->setFocus();
  Form_Activate(item);
}

frmLibraryProperties::~frmLibraryProperties() = default;

void frmLibraryProperties::Form_Activate(const Row &item) {
  Guarded(mState, "frmLibraryProperties.Form_Activate(): ", [this, &item] {
    mUi->txtFilename->SetPath(item.SubItems(column::Filename));
    mUi->txtSize->setText(ToQString(FormatKB(item.SubItems(column::Size))));
    std::vector<std::string> courses;
    ListCoursesUsingLibrary(mState.lstCourses, courses, item.Tag());
    mUi->lstCourses->SetNames(std::move(courses));
  });
}

} // namespace turfdesk
