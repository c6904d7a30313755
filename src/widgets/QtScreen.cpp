// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/QtScreen.h"

#include <QApplication>

namespace turfdesk {

namespace {

/// Milliseconds between two repaints: smooth to the eye, and next to nothing for the work between them.
constexpr qint64 RepaintInterval = 30;

} // namespace

QtScreen::~QtScreen() { SetMousePointer(MousePointer::Default); }

void QtScreen::DoEvents() { QCoreApplication::processEvents(); }

void QtScreen::Repaint() {
  if (mSinceRepaint.isValid() && mSinceRepaint.elapsed() < RepaintInterval)
    return;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  mSinceRepaint.start();
}

void QtScreen::SetMousePointer(MousePointer pointer) {
  const bool hourglass = pointer == MousePointer::Hourglass;
  if (hourglass == mHourglass)
    return;
  mHourglass = hourglass;
  if (hourglass)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

} // namespace turfdesk
