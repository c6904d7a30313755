// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/PendingInput.h"

#include <QCoreApplication>
#include <QEvent>

namespace turfdesk {

namespace {

class InputSink final : public QObject {
public:
  bool eventFilter(QObject *, QEvent *event) override {
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
      return true;
    default:
      return false;
    }
  }
};

} // namespace

void DiscardPendingInput() {
  InputSink sink;
  QCoreApplication::instance()->installEventFilter(&sink);
  QCoreApplication::processEvents();
}

} // namespace turfdesk
