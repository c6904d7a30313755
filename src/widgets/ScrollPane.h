// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QScrollArea>

namespace turfdesk {

/// Part of a form that scrolls where it gets less height than it wants. Where it gets enough, nothing shows that it is
/// there; it takes no focus and has the background of the form.
class ScrollPane final : public QScrollArea {
  Q_OBJECT

public:
  explicit ScrollPane(QWidget *parent = nullptr);

  /// As large as its contents.
  QSize sizeHint() const override;
  /// As wide as its contents, with the scroll bar where there is one; a few lines high.
  QSize minimumSizeHint() const override;

protected:
  bool event(QEvent *event) override;
  bool eventFilter(QObject *watched, QEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;

private:
  int ScrollBarWidth() const;
};

} // namespace turfdesk
