// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/PictureButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace turfdesk {

namespace {

constexpr int Margin = 6;
constexpr int Gap = 3;
/// A caption is broken so that it is about this many characters wide.
constexpr int CaptionCharacters = 17;
constexpr int CaptionFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap | Qt::TextShowMnemonic;

} // namespace

QSize PictureButton::PictureSize() const { return icon().isNull() ? QSize(0, 0) : iconSize(); }

QSize PictureButton::CaptionSize() const {
  const QRect room(0, 0, fontMetrics().averageCharWidth() * CaptionCharacters, 1000);
  return fontMetrics().boundingRect(room, CaptionFlags, text()).size();
}

QSize PictureButton::sizeHint() const {
  const QSize picture = PictureSize();
  const QSize caption = CaptionSize();
  const int gap = picture.isEmpty() ? 0 : Gap;
  return {std::max(picture.width(), caption.width()) + 2 * Margin,
          picture.height() + gap + caption.height() + 2 * Margin};
}

void PictureButton::paintEvent(QPaintEvent *) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  option.icon = QIcon();
  painter.drawControl(QStyle::CE_PushButton, option);

  const QSize picture = PictureSize();
  const int gap = picture.isEmpty() ? 0 : Gap;
  const int height = picture.height() + gap + CaptionSize().height();
  const int top = (this->height() - height) / 2;
  const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
  icon().paint(&painter, QRect((width() - picture.width()) / 2, top, picture.width(), picture.height()),
               Qt::AlignCenter, mode);
  const QRect caption(Margin, top + picture.height() + gap, width() - 2 * Margin, CaptionSize().height());
  style()->drawItemText(&painter, caption, CaptionFlags, palette(), isEnabled(), text(), QPalette::ButtonText);
}

} // namespace turfdesk
