// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/WindowFitter.h"

#include "widgets/ScrollPane.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFont>
#include <QMessageBox>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace turfdesk {

namespace {

/// Height in pixels of the font that the sizes in the forms are meant for.
constexpr qreal UsualFont = 12;

/// Says of a window that it has been fitted; from then on its size is the user's.
constexpr char Fitted[] = "fitted";

/// The frame that the window system draws around a window, as far as it is known.
QMargins KnownFrameOf(const QWidget &window) {
  const QRect inner = window.geometry();
  const QRect outer = window.frameGeometry();
  return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
          outer.bottom() - inner.bottom()};
}

/// What has to be reckoned with: a window that has not been shown yet will have the frame of its parent.
QMargins FrameOf(const QWidget &window) {
  const QMargins known = KnownFrameOf(window.parentWidget() != nullptr ? *window.parentWidget()->window() : window);
  constexpr QMargins usualFrame(8, 31, 8, 8);
  return known.isNull() ? usualFrame : known;
}

const QScreen &ScreenOf(const QWidget &window) {
  return window.parentWidget() != nullptr ? *window.parentWidget()->window()->screen() : *window.screen();
}

bool FitsInto(const QSize &room, const QSize &size) {
  return size.width() <= room.width() && size.height() <= room.height();
}

/// As the font was asked for. To look for the one that is there takes as long as everything else before the first
/// picture of a window.
qreal PixelsOfFont(const QWidget &window) {
  const QFont &font = window.font();
  constexpr qreal pointsOfInch = 72;
  return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * window.logicalDpiY() / pointsOfInch;
}

void GrowWithFont(QWidget &window) {
  const qreal factor = PixelsOfFont(window) / UsualFont;
  if (factor <= 1)
    return;
  if (window.testAttribute(Qt::WA_Resized))
    window.resize(window.size() * factor);
  for (auto *list : window.findChildren<QAbstractItemView *>())
    list->setMinimumSize(list->minimumSize() * factor);
}

/// Moves all rows of a form but the last into a layout of their own.
QLayout *TakeRowsAboveLast(QVBoxLayout &form) {
  auto *rows = new QVBoxLayout;
  rows->setContentsMargins({});
  rows->setSpacing(form.spacing());
  while (form.count() > 1) {
    const int stretch = form.stretch(0);
    QLayoutItem *row = form.takeAt(0);
    if (QWidget *widget = row->widget()) {
      rows->addWidget(widget, stretch, row->alignment());
      delete row;
    } else if (QLayout *layout = row->layout()) {
      layout->setParent(nullptr);
      rows->addLayout(layout, stretch);
    } else {
      rows->addItem(row);
    }
  }
  return rows;
}

void MakeScrollable(QWidget &window) {
  auto *pane = new ScrollPane(&window);
  auto *contents = new QWidget(pane);
  auto *form = qobject_cast<QVBoxLayout *>(window.layout());
  if (form != nullptr && form->count() > 1) {
    contents->setLayout(TakeRowsAboveLast(*form));
    form->insertWidget(0, pane, 1);
  } else {
    contents->setLayout(window.layout());
    auto *whole = new QVBoxLayout(&window);
    whole->setContentsMargins({});
    whole->addWidget(pane);
  }
  pane->setWidget(contents);
  pane->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
}

void FitToScreen(QWidget &window) {
  const QSize room = RoomOnScreen(window);
  QLayout *layout = window.layout();
  if (layout != nullptr)
    layout->activate();
  const QSize wanted = window.size();
  if (FitsInto(room, wanted))
    return;
  // A file dialog knows how to be small.
  if (layout != nullptr && qobject_cast<QFileDialog *>(&window) == nullptr) {
    for (auto *list : window.findChildren<QAbstractItemView *>())
      list->setMinimumSize(0, 0);
    layout->setSizeConstraint(QLayout::SetDefaultConstraint);
    window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    if (!FitsInto(room, layout->totalMinimumSize()))
      MakeScrollable(window);
    window.setMinimumSize(0, 0);
    window.layout()->activate();
  }
  window.resize(wanted.boundedTo(room));
}

bool IsOpening(const QWidget &window) {
  const bool isForm = window.isWindow() && (window.windowType() == Qt::Window || window.windowType() == Qt::Dialog);
  // A message box finds its own size.
  return isForm && !window.property(Fitted).toBool() && qobject_cast<const QMessageBox *>(&window) == nullptr;
}

} // namespace

WindowFitter::WindowFitter() { QCoreApplication::instance()->installEventFilter(this); }

bool WindowFitter::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() != QEvent::Show || !watched->isWidgetType())
    return false;
  auto &window = static_cast<QWidget &>(*watched);
  if (!IsOpening(window))
    return false;
  window.setProperty(Fitted, true);
  GrowWithFont(window);
  FitToScreen(window);
  return false;
}

QSize RoomOnScreen(const QWidget &window) {
  return ScreenOf(window).availableGeometry().marginsRemoved(FrameOf(window)).size();
}

void PlaceBeside(QWidget &window, const QWidget &other) {
  const QRect screen = ScreenOf(other).availableGeometry();
  const QRect taken = other.frameGeometry();
  const QMargins frame = KnownFrameOf(other);
  const QSize size = window.size().grownBy(frame);
  const int roomLeft = taken.left() - screen.left();
  const int roomRight = screen.right() - taken.right();
  const bool toTheRight = roomRight >= std::min(size.width(), roomLeft);
  const int besideX = toTheRight ? taken.right() + 1 : taken.left() - size.width();
  const auto within = [](int wanted, int first, int last) { return std::max(first, std::min(wanted, last)); };
  const QPoint corner(within(besideX, screen.left(), screen.right() + 1 - size.width()),
                      within(taken.top(), screen.top(), screen.bottom() + 1 - size.height()));
  // Not moved by its corner: before a window is shown, some systems know nothing of its frame.
  window.setGeometry(QRect(corner, size).marginsRemoved(frame));
}

} // namespace turfdesk
