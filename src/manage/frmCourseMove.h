// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "manage/Move.h"
#include "platform/ListView.h"
#include "support/SharedState.h"

#include <QDialog>

#include <memory>
#include <string>

namespace turfdesk {

class Ui_frmCourseMove;

/// The move dialog: the directory that a course or library is to go to. It stays loaded, though hidden, while the
/// status window that it opens does the work.
class frmCourseMove final : public QDialog {
  Q_OBJECT

public:
  /// item is a row of the list that commands act on. Throws RuntimeError when the folder to start in cannot be opened.
  frmCourseMove(SharedState &state, const Row &item, QWidget *parent);
  ~frmCourseMove() override;

  /// What is chosen at this moment: the row, null when it has left its list, and the highlighted directory.
  MoveRequest Request() const;

private:
  void Form_Load();
  void btnMove_Click();

  SharedState &mState;
  /// The row by its key: windows live longer than rows.
  ListView &mItems;
  std::string mItemKey;
  std::unique_ptr<Ui_frmCourseMove> mUi;
};

} // namespace turfdesk
