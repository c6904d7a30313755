// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/FirstActivation.h"

#include <QEvent>
#include <QGuiApplication>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace turfdesk {

namespace {

using std::chrono::milliseconds;

class FirstActivation final : public QObject {
public:
  FirstActivation(QWidget &window, const std::function<void()> &run) : QObject(&window) {
    mTimer.setSingleShot(true);
    connect(&mTimer, &QTimer::timeout, this, [this, &window, run] {
      window.removeEventFilter(this);
      // What has been painted comes onto the screen before the work takes the processor.
      QGuiApplication::sync();
      run();
    });
    window.installEventFilter(this);
  }

  bool eventFilter(QObject *, QEvent *event) override {
    if (event->type() == QEvent::Show)
      mTimer.start(milliseconds(1000));
    if (event->type() == QEvent::Paint)
      mTimer.start(milliseconds(0));
    return false;
  }

private:
  QTimer mTimer;
};

} // namespace

void AtFirstActivation(QWidget &window, const std::function<void()> &run) { new FirstActivation(window, run); }

} // namespace turfdesk
