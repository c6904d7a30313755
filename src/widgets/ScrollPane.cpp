// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/ScrollPane.h"

#include <QEvent>
#include <QScrollBar>

#include <algorithm>

namespace turfdesk {

ScrollPane::ScrollPane(QWidget *parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  viewport()->setAutoFillBackground(false);
}

int ScrollPane::ScrollBarWidth() const {
  const bool scrolls = widget() != nullptr && height() < widget()->minimumSizeHint().height();
  return scrolls ? verticalScrollBar()->sizeHint().width() : 0;
}

QSize ScrollPane::sizeHint() const {
  return widget() == nullptr ? QSize(0, 0) : widget()->sizeHint() + QSize(ScrollBarWidth(), 0);
}

QSize ScrollPane::minimumSizeHint() const {
  if (widget() == nullptr)
    return {0, 0};
  const QSize contents = widget()->minimumSizeHint();
  return {contents.width() + ScrollBarWidth(), std::min(contents.height(), 4 * fontMetrics().lineSpacing())};
}

bool ScrollPane::event(QEvent *event) {
  // A scroll area gives its contents a background of their own.
  if (event->type() == QEvent::Polish && widget() != nullptr)
    widget()->setAutoFillBackground(false);
  return QScrollArea::event(event);
}

bool ScrollPane::eventFilter(QObject *watched, QEvent *event) {
  const bool contentsChanged = watched == widget() && event->type() == QEvent::LayoutRequest;
  const bool handled = QScrollArea::eventFilter(watched, event);
  if (contentsChanged)
    updateGeometry();
  return handled;
}

void ScrollPane::resizeEvent(QResizeEvent *event) {
  QScrollArea::resizeEvent(event);
  // The scroll bar may have come or gone.
  updateGeometry();
}

} // namespace turfdesk
