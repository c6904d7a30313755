// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  // Naming the tests needs no display, and there is none when they are named while building.
  if (GTEST_FLAG_GET(list_tests))
    return RUN_ALL_TESTS();
  // A file dialog of the system's own is none of ours to drive.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QApplication application(argc, argv);
  // File dialogs remember how they were used, in the user's own settings; they must not do that here.
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
  return RUN_ALL_TESTS();
}
