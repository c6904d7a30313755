// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "manage/CourseMedia.h"
#include "platform/ListView.h"
#include "support/SharedState.h"

#include <QDialog>

#include <array>
#include <memory>
#include <string>

class QPushButton;

namespace turfdesk {

class PathBox;
class Ui_frmCourseProperties;

/// Shows a course, and lets the user point it at other media. What has been changed is saved when the window closes,
/// however it closes.
class frmCourseProperties final : public QDialog {
  Q_OBJECT

public:
  /// item is a row of the courses.
  frmCourseProperties(SharedState &state, const Row &item, QWidget *parent);
  ~frmCourseProperties() override;

  void done(int result) override;

private:
  /// The controls of one of the CourseMediaKinds.
  struct Media {
    PathBox *txtMedia;
    QPushButton *btnMedia;
    std::string filledWith;
  };

  void ConnectMedia(const CourseMedia &kind, Media &media);
  void Form_Activate();
  void btnMedia_Click(const CourseMedia &kind, const Media &media);
  void txtMedia_LostFocus(const Media &media);
  void Save();
  /// Throws RuntimeError 91 when it has left its list.
  Row &Item() const;

  SharedState &mState;
  /// The row by its key: windows live longer than rows.
  std::string mItemKey;
  std::unique_ptr<Ui_frmCourseProperties> mUi;
  std::array<Media, CourseMediaKinds.size()> mMedia;
  /// A path has changed since the window opened.
  bool mDirty = false;
};

} // namespace turfdesk
