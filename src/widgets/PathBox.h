// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QLineEdit>

#include <string>
#include <string_view>

namespace turfdesk {

/// A text box for a path. One that does not fit shows its beginning while nobody works in the box, and is whole in the
/// tool tip. A box that is read only looks so. There is air above and below the text; some styles cut accents off
/// without it.
class PathBox final : public QLineEdit {
  Q_OBJECT

public:
  explicit PathBox(QWidget *parent = nullptr) : QLineEdit(parent) {}

  void SetPath(std::string_view path);
  std::string Path() const;

  QSize sizeHint() const override { return QLineEdit::sizeHint().grownBy({0, 2, 0, 2}); }
  QSize minimumSizeHint() const override { return QLineEdit::minimumSizeHint().grownBy({0, 2, 0, 2}); }

signals:
  /// The user has left the box. To look at another window, or at a menu of the box, is not to leave it.
  void LostFocus();

protected:
  bool event(QEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;

private:
  void ShowToolTip(const QPoint &globalPosition);
  void ShowWhetherReadOnly();

  std::string mPath;
};

} // namespace turfdesk
