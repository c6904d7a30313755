// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/PendingInput.h"

#include <QCoreApplication>
#include <QEvent>

namespace turfdesk {

InputBlock::InputBlock() { QCoreApplication::instance()->installEventFilter(this); }

bool InputBlock::eventFilter(QObject *, QEvent *event) {
  switch (event->type()) {
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::Shortcut:
  case QEvent::ShortcutOverride:
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::Wheel:
  case QEvent::ContextMenu:
  case QEvent::TouchBegin:
  case QEvent::Close:
    return true;
  default:
    return false;
  }
}

void DiscardPendingInput() {
  const InputBlock block;
  QCoreApplication::processEvents();
}

} // namespace turfdesk
