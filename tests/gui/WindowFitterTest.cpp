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
    EXPECT_EQ(exit.visibleRegion().boundingRect().size(), exit.size())
        << pixels << ": the keyboard scrolls it into view";
    for (const char *list : {"lstCourses", "lstLibraries"})
      for (const MainCommand &command : MainCommands()) {
        auto &rows = Find<RowListWidget>(main, list);
        QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, Middle(rows, 0));
        const test::ModalWatch<QDialog> watch([&](QDialog &form) {
          const QString what = form.objectName() + " at " + QString::number(pixels);
          EXPECT_TRUE(Free(form).contains(form.frameGeometry())) << what.toStdString();
          EXPECT_EQ(CoveredButtons(form), QStringList()) << what.toStdString();
          form.reject();
        });
        const std::string_view button = command.button;
        if (button != "btnExit" && button != "btnConvert" && button != "btnConvertQuillon")
          Find<QPushButton>(main, command.button).click();
      }
  }
}

TEST_F(WindowFitterTest, TheFirstSizeGrowsWithTheFontAndIsThenTheUsers) {
  SetFontHeight(15);
  ShowMain(window);
  EXPECT_EQ(window.width(), 800);
  EXPECT_GE(window.height(), 575);
  window.resize(700, 600);
  window.hide();
  window.show();
  EXPECT_EQ(window.size(), QSize(700, 600));
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
  window.move(screen.topLeft());
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
