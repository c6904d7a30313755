// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/WindowFitter.h"
#include "conversion/frmCourseConvert.h"

#include "gui/ManageFixture.h"
#include "gui/ModalWatch.h"

#include <QDialog>
#include <QScreen>

namespace turfdesk {

namespace {

class WindowFitterTest : public test::ManageFixture {
protected:
  ~WindowFitterTest() override { QApplication::setFont(mUsual); }

  // The fixture shows its window here.
  void SetUp() override {}

  static void SetFontHeight(int pixels) {
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    QApplication::setFont(font);
  }
  static QRect Free(const QWidget &on) { return on.screen()->availableGeometry(); }

  /// The buttons of the form with a caption that cannot be seen whole.
  static QStringList CoveredButtons(QWidget &form) {
    QStringList captions;
    for (const auto *button : form.findChildren<QPushButton *>())
      if (button->isVisible() && !button->text().isEmpty() &&
          button->visibleRegion().boundingRect().size() != button->size())
        captions.append(button->text());
    return captions;
  }

private:
  const QFont mUsual = QApplication::font();
  const WindowFitter mFitter;
};

} // namespace

TEST_F(WindowFitterTest, WhateverTheFontFormsFitTheScreenAndTheirButtonsAreSeen) {
  for (const int pixels : {12, 24, 38}) {
    SetFontHeight(pixels);
    frmTurfManager main(state);
    ShowMain(main);
    EXPECT_TRUE(Free(main).contains(main.frameGeometry())) << pixels;
    auto &exit = Find<QPushButton>(main, "btnExit");
    exit.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&main, Qt::Key_Backtab);
    QTest::keyClick(main.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([&exit] { return exit.visibleRegion().boundingRect() == exit.rect(); }))
        << pixels << ": the keyboard scrolls it into view";
    auto &courses = Find<RowListWidget>(main, "lstCourses");
    QTest::mouseClick(courses.viewport(), Qt::LeftButton, {}, Middle(courses, 0));
    for (const char *button :
         {"btnCourseInstall", "btnCourseProperties", "btnCourseMove", "btnCourseCompress", "btnAbout"}) {
      const test::ModalWatch<QDialog> watch([&](QDialog &form) {
        const QString what = form.objectName() + " at " + QString::number(pixels);
        EXPECT_TRUE(Free(form).contains(form.frameGeometry())) << what.toStdString();
        EXPECT_EQ(CoveredButtons(form), QStringList()) << what.toStdString();
        form.reject();
      });
      Find<QPushButton>(main, button).click();
    }
  }
}

TEST_F(WindowFitterTest, TheFirstSizeGrowsWithTheFontAndIsThenTheUsers) {
  SetFontHeight(14);
  frmTurfManager main(state);
  ShowMain(main);
  EXPECT_NEAR(main.width(), 640.0 * 14 / 12, 1);
  main.resize(700, 600);
  main.hide();
  main.show();
  EXPECT_EQ(main.size(), QSize(700, 600));
}

TEST_F(WindowFitterTest, TheConvertFormStandsBesideTheMainWindowAsFarAsThereIsRoom) {
  SetFontHeight(12);
  ShowMain(window);
  const QRect screen = Free(window);
  const auto open = [this] {
    Click(window, "btnConvert");
    return window.findChild<frmCourseConvert *>()->frameGeometry();
  };
  window.resize(250, 400);
  window.move(screen.left() - 200, screen.top());
  EXPECT_FALSE(open().intersects(window.frameGeometry()));
  window.findChild<frmCourseConvert *>()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  window.resize(screen.width() - 300, 400);
  window.move(screen.left() + 200, screen.top());
  const QRect form = open();
  EXPECT_EQ(form.left(), screen.left()) << "more room is at the left";
  EXPECT_TRUE(screen.contains(form));
}

} // namespace turfdesk
