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

QStringList StatusLabel::ShownLines() const {
  const QFontMetrics metrics = fontMetrics();
  const QString text = OneLine(Caption());
  QStringList lines = BreakIntoLines(text, font(), width());
  // How much of a line stays unused depends on where it breaks.
  for (int room = width() * mLines; lines.size() > mLines && room > 0; room -= metrics.averageCharWidth())
    lines = BreakIntoLines(metrics.elidedText(text, Qt::ElideMiddle, room), font(), width());
  return lines;
}

void StatusLabel::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop, ShownLines().join('\n'));
}

} // namespace turfdesk
