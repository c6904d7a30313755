// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/ParagraphLabel.h"

#include <QPainter>
#include <QRegularExpression>
#include <QScreen>

#include <algorithm>

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
  const int wanted = fontMetrics().averageCharWidth() * mColumns;
  const QRect room(0, 0, std::min(wanted, screen()->availableSize().width() * 4 / 5), anyHeight);
  return fontMetrics().boundingRect(room, Flags, Paragraphs()).size();
}

void ParagraphLabel::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), Flags, Paragraphs());
}

} // namespace turfdesk
