// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/PathBox.h"

#include "widgets/QtText.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>

namespace turfdesk {

void PathBox::SetPath(std::string_view path) {
  mPath = path;
  setText(OneLine(path));
  home(false);
}

std::string PathBox::Path() const {
  // What is shown need not be the path, as long as nobody has changed it.
  return text() == OneLine(mPath) ? mPath : ToUtf8(text());
}

bool PathBox::event(QEvent *event) {
  if (event->type() == QEvent::ReadOnlyChange)
    ShowWhetherReadOnly();
  if (event->type() != QEvent::ToolTip)
    return QLineEdit::event(event);
  ShowToolTip(static_cast<QHelpEvent *>(event)->globalPos());
  return true;
}

void PathBox::ShowToolTip(const QPoint &globalPosition) {
  QStyleOptionFrame frame;
  initStyleOption(&frame);
  const int room = style()->subElementRect(QStyle::SE_LineEditContents, &frame, this).width();
  if (fontMetrics().horizontalAdvance(text()) > room)
    QToolTip::showText(globalPosition, PlainToolTip(text()), this);
  else
    QToolTip::hideText();
}

void PathBox::ShowWhetherReadOnly() {
  QPalette colours;
  if (isReadOnly())
    colours.setBrush(QPalette::Base, colours.window());
  setPalette(colours);
}

void PathBox::focusOutEvent(QFocusEvent *event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
    return;
  home(false);
  emit LostFocus();
}

} // namespace turfdesk
