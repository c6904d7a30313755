// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/StatusLabel.h"

#include "widgets/QtText.h"

#include <QPainter>

namespace turfdesk {

StatusLabel::StatusLabel(QWidget *parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void StatusLabel::SetLines(int lines) {
  mLines = lines;
  updateGeometry();
}

void StatusLabel::SetCaption(std::string_view text) {
  const QString caption = ToQString(text);
  setText(caption);
  setToolTip(PlainToolTip(caption));
}

std::string StatusLabel::Caption() const { return ToUtf8(text()); }

QSize StatusLabel::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 10, fontMetrics().lineSpacing() * mLines};
}

void StatusLabel::paintEvent(QPaintEvent *) {
  const QFontMetrics metrics = fontMetrics();
  // Each broken line may leave up to one character's room unused.
  const int room = width() * mLines - (mLines - 1) * metrics.maxWidth();
  const QString shown = metrics.elidedText(OneLine(Caption()), Qt::ElideMiddle, room);
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere, shown);
}

} // namespace turfdesk
