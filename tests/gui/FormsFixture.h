// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "catalogue/Catalogue.h"
#include "shell/frmTurfManager.h"
#include "widgets/RowListWidget.h"

#include "common/TestWorld.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace turfdesk::test {

/// A started program whose windows are shown, and what a user does with them.
class FormsFixture : public testing::Test {
protected:
  FormsFixture() {
    world.screen.onEvents = [] { QCoreApplication::processEvents(); };
    state.defaultDir = world.MakeFolder(R"(C:\Golf)");
  }

  void AddToCatalogue(int courses, int libraries) {
    for (int i = 0; i < courses; ++i)
      RegisterCourse(state, "{C" + std::to_string(i) + "}", "Course " + std::to_string(i), R"(C:\Golf\c.hlc)");
    for (int i = 0; i < libraries; ++i)
      RegisterLibrary(state, "{L" + std::to_string(i) + "}", "Library " + std::to_string(i), R"(C:\Golf\l.hlb)");
  }

  template <typename Control> static Control &Find(QWidget &window, const char *name) {
    auto *control = window.findChild<Control *>(name);
    if (control == nullptr)
      throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  static std::string Caption(QWidget &window, const char *label) {
    return Find<QLabel>(window, label).text().toStdString();
  }
  static void Click(QWidget &window, const char *button) {
    QTest::mouseClick(&Find<QPushButton>(window, button), Qt::LeftButton);
  }
  static void Show(QWidget &window) {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  static void ShowMain(frmTurfManager &window) {
    QSignalSpy loaded(&window, &frmTurfManager::Loaded);
    Show(window);
    ASSERT_TRUE(!loaded.isEmpty() || loaded.wait());
  }
  static QPoint Middle(RowListWidget &list, int row) { return list.visualRect(list.model()->index(row, 0)).center(); }
  static std::string Selected(const ListView &list) { return list.SelectedItem() ? list.SelectedItem()->Text() : ""; }

  /// What assistive technology calls the controls that the keyboard reaches.
  static QStringList NamesOfControls(QWidget &window) {
    QStringList names;
    for (QWidget *control : window.findChildren<QWidget *>(QString(), Qt::FindChildrenRecursively))
      if (control->window() == &window && (control->focusPolicy() & Qt::TabFocus) != 0 &&
          !control->objectName().startsWith("qt_"))
        names.append(control->accessibleName().isEmpty()
                         ? QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name)
                         : control->accessibleName());
    return names;
  }

  TestWorld world;
  SharedState &state = world.state;
};

} // namespace turfdesk::test
