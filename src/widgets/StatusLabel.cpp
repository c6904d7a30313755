// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/StatusLabel.h"

#include "widgets/QtText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace turfdesk {

StatusLabel::StatusLabel(QWidget *parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void StatusLabel::SetLines(int lines) {
  mLines = lines;
  updateGeometry();
}

void StatusLabel::SetCaption(std::string_view text) {
  mCaption = text;
  setText(OneLine(text));
}

std::string StatusLabel::Caption() const { return mCaption; }

bool StatusLabel::event(QEvent *event) {
  if (event->type() != QEvent::ToolTip)
    return QLabel::event(event);
  // Shown from here, since assistive technology would read a tip that the label owns as its description, markup and
  // all.
  QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), PlainToolTip(text()), this);
  return true;
}

QSize StatusLabel::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 10, fontMetrics().lineSpacing() * mLines};
}

void StatusLabel::paintEvent(QPaintEvent *) {
  const QFontMetrics metrics = fontMetrics();
  // Each broken line may leave up to one character's room unused.
  const int room = width() * mLines - (mLines - 1) * metrics.maxWidth();
  const QString shown = metrics.elidedText(text(), Qt::ElideMiddle, room);
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere, shown);
}

} // namespace turfdesk
