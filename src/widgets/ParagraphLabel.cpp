// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/ParagraphLabel.h"

#include <QPainter>
#include <QRegularExpression>

namespace turfdesk {

namespace {

constexpr int Flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

} // namespace

void ParagraphLabel::SetColumns(int columns) {
  mColumns = columns;
  updateGeometry();
}

QString ParagraphLabel::Paragraphs() const {
  static const QRegularExpression longRun(" {8,}");
  return text().replace(longRun, "\n\n");
}

QSize ParagraphLabel::sizeHint() const {
  constexpr int anyHeight = 10000;
  const QRect room(0, 0, fontMetrics().averageCharWidth() * mColumns, anyHeight);
  return fontMetrics().boundingRect(room, Flags, Paragraphs()).size();
}

void ParagraphLabel::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), Flags, Paragraphs());
}

} // namespace turfdesk
