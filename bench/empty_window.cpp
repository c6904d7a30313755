// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// The least that a Qt program with a window can be: the baseline of bench-start.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(640, 460);
  window.show();
  return QApplication::exec();
}
