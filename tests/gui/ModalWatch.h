// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace turfdesk::test {

/// Acts once, on the first modal window of a type that is active and ready while the watch lives. For what blocks until
/// somebody does something in the window that it shows.
template <typename Window> class ModalWatch {
public:
  explicit ModalWatch(
      const std::function<void(Window &)> &act,
      const std::function<bool(Window &)> &ready = [](Window &) { return true; }) {
    mTimer.callOnTimeout([this, act, ready] {
      auto *window = dynamic_cast<Window *>(QApplication::activeModalWidget());
      // Before a window is active it has no focus, and keys do not reach it. QWidget::isActiveWindow is true for a
      // dialog as soon as its parent is active.
      if (window == nullptr || QApplication::activeWindow() != window || !ready(*window))
        return;
      mTimer.stop();
      act(*window);
    });
    mTimer.start(1);
  }

private:
  QTimer mTimer;
};

} // namespace turfdesk::test
