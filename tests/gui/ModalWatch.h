// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace turfdesk::test {

/// For windows in which the focus counts: it is not there before the window is the active one.
inline bool IsActive(const QWidget &window) { return window.isActiveWindow(); }

/// Acts once, on the first modal window of a type that is up and ready while the watch lives. For what blocks until
/// somebody does something in the window that it shows.
template <typename Window> class ModalWatch {
public:
  explicit ModalWatch(
      const std::function<void(Window &)> &act,
      const std::function<bool(Window &)> &ready = [](Window &) { return true; }) {
    mTimer.callOnTimeout([this, act, ready] {
      auto *window = dynamic_cast<Window *>(QApplication::activeModalWidget());
      if (window == nullptr || !ready(*window))
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
