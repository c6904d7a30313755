// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/StatusDialog.h"
#include "platform/RuntimeError.h"
#include "widgets/AviAnimation.h"
#include "widgets/ByteProgressBar.h"
#include "widgets/QtMessageBoxes.h"
#include "widgets/QtScreen.h"
#include "widgets/QtText.h"

#include "gui/ModalWatch.h"

#include <QAccessible>
#include <QApplication>
#include <QDeadlineTimer>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

#include <functional>

namespace turfdesk {

namespace {

class NoFiles final : public BinaryFiles {
public:
  std::unique_ptr<BinaryFile> OpenForBinaryRead(std::string_view) override { return nullptr; }
};

/// Presses a key that nobody has seen yet: whoever is in front when events are served next gets it.
class PendingKey {
public:
  void Press(Qt::Key key) {
    mTimer.setSingleShot(true);
    mTimer.callOnTimeout([key] {
      QWidget *modal = QApplication::activeModalWidget();
      if (QWidget *front = modal != nullptr ? modal : QApplication::activeWindow())
        QTest::keyClick(front, key);
    });
    mTimer.start(0);
  }

private:
  QTimer mTimer;
};

class StatusDialogTest : public testing::Test {
protected:
  NoFiles files;
  StatusDialog dialog{"Working", files, nullptr};
  QPushButton &btnClose = *dialog.findChild<QPushButton *>("btnClose");
};

class MessageBoxesTest : public testing::Test {
protected:
  /// Shows a box and acts on it once it is up.
  BoxAnswer Show(const MessageBox &box, const std::function<void(QMessageBox &)> &act) {
    const test::ModalWatch<QMessageBox> watch(act);
    return boxes.Show(box);
  }

  QtMessageBoxes boxes;
};

} // namespace

TEST_F(StatusDialogTest, DoesItsWorkOnceAndCannotBeClosedMeanwhile) {
  int runs = 0;
  dialog.SetWork([this, &runs] {
    ++runs;
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QTest::keyClick(&dialog, Qt::Key_Return);
    dialog.close();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(btnClose.isVisible());
    dialog.ShowCloseButton();
  });
  dialog.show();
  EXPECT_EQ(runs, 0) << "the work does not begin from within the showing";
  ASSERT_TRUE(QTest::qWaitFor([this] { return btnClose.isVisible(); }));
  EXPECT_TRUE(btnClose.isDefault());
  QWidget other;
  other.show();
  other.activateWindow();
  dialog.activateWindow();
  QTest::qWait(50);
  EXPECT_EQ(runs, 1);
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(StatusDialogTest, KeysPressedDuringTheWorkDoNotCloseTheVerdict) {
  PendingKey key;
  dialog.SetWork([this, &key] {
    key.Press(Qt::Key_Escape);
    dialog.RouteLabel().SetCaption("done");
    dialog.ShowCloseButton();
  });
  dialog.show();
  ASSERT_TRUE(QTest::qWaitFor([this] { return btnClose.isVisible(); }));
  QCoreApplication::processEvents();
  EXPECT_TRUE(dialog.isVisible());
}

TEST_F(StatusDialogTest, LabelsKeepTheWholeOfALongPath) {
  const std::string route = "\"C:\\" + std::string(3000, 'x') + "\" to \"D:\\<b>\"";
  dialog.RouteLabel().SetCaption(route);
  dialog.show();
  const int width = dialog.width();
  auto *label = dialog.findChild<QLabel *>("lblStatus_1");
  EXPECT_EQ(label->text().toStdString(), route);
  EXPECT_EQ(dialog.RouteLabel().Caption(), route);
  QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), label->mapToGlobal(QPoint(5, 5)));
  QCoreApplication::sendEvent(label, &help);
  EXPECT_TRUE(QToolTip::text().contains("D:\\&lt;b&gt;"));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Description), "")
      << "no markup is read aloud";
  dialog.RouteLabel().SetCaption("a\x1B\n");
  EXPECT_EQ(label->text(), "a␛␊");
  EXPECT_EQ(dialog.RouteLabel().Caption(), "a\x1B\n");
  dialog.RouteLabel().SetCaption("short");
  EXPECT_EQ(dialog.width(), width);
}

TEST(QtTextTest, LinesBreakAtBlanksAndBackslashesBeforeTheyBreakWords) {
  const QFont font = QApplication::font();
  const int width = QFontMetrics(font).horizontalAdvance(R"("C:\Golf\Courses\My)");
  EXPECT_EQ(BreakIntoLines(R"("C:\Golf\Courses\Evergreen" to "D:\Old Courses")", font, width).join('|').toStdString(),
            R"("C:\Golf\Courses\|Evergreen" to |"D:\Old Courses")");
  const QString word(60, u'w');
  EXPECT_EQ(BreakIntoLines("a " + word, font, width).join(""), "a " + word);
  EXPECT_EQ(BreakIntoLines("a " + word, font, width).front(), "a ");
}

TEST_F(StatusDialogTest, ProgressCountsBytesBeyondTwoGigabytes) {
  const auto &bar = *dialog.findChild<ByteProgressBar *>("progressBar");
  Progress &progress = dialog.WorkProgress();
  progress.Begin(2'000'000'000);
  progress.SetPosition(1'999'999'999);
  EXPECT_EQ(bar.value(), 1'999'999'999);
  const std::uint64_t large = 12'345'678'901'234;
  progress.Begin(large);
  EXPECT_EQ(bar.value(), 0);
  progress.SetPosition(large / 4);
  EXPECT_NEAR(bar.value() / static_cast<double>(bar.maximum()), 0.25, 1e-6);
  progress.SetPosition(large);
  EXPECT_EQ(bar.value(), bar.maximum());
  progress.Begin(0);
  EXPECT_LT(bar.minimum(), bar.maximum()) << "a bar without a range moves for ever";
}

TEST_F(StatusDialogTest, AMissingAnimationIsAnError) {
  dialog.WorkAnimation().SetAutoPlay(true);
  EXPECT_THROW(dialog.WorkAnimation().Open("C:\\working.avi"), RuntimeError);
  EXPECT_FALSE(dialog.findChild<AviAnimation *>("Animation1")->IsPlaying());
}

/// Counts its paintings and the movements of the mouse that it sees.
class Watched final : public QWidget {
public:
  int paintings = 0;
  int moves = 0;

protected:
  void paintEvent(QPaintEvent *) override { ++paintings; }
  void mouseMoveEvent(QMouseEvent *) override { ++moves; }
};

TEST(QtScreenTest, DoEventsServesInputAndRepaintDoesNot) {
  QtScreen screen;
  Watched window;
  window.setMouseTracking(true);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  screen.DoEvents();
  window.paintings = window.moves = 0;
  QCursor::setPos(window.mapToGlobal(QPoint(20, 20)));
  window.update();
  screen.Repaint();
  EXPECT_EQ(window.paintings, 1);
  EXPECT_EQ(window.moves, 0);
  window.update();
  screen.DoEvents();
  EXPECT_EQ(window.paintings, 2);
  // A display server may take its time, and a window manager may still be moving the window.
  for (const QDeadlineTimer deadline(5000); window.moves == 0 && !deadline.hasExpired();) {
    QCursor::setPos(window.mapToGlobal(QPoint(20 + deadline.remainingTime() % 2, 20)));
    screen.DoEvents();
  }
  EXPECT_GT(window.moves, 0);
}

TEST(QtScreenTest, HourglassesDoNotPileUp) {
  QtScreen screen;
  screen.SetMousePointer(MousePointer::Hourglass);
  screen.SetMousePointer(MousePointer::Hourglass);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  screen.SetMousePointer(MousePointer::Default);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MessageBoxesTest, ShowsTheTextAsItStands) {
  const BoxAnswer answer = Show({"<b>C:\\\x07</b>\r\n\r\nReplace?", "Turf Desk", BoxButtons::YesNo, BoxIcon::Question},
                                [](QMessageBox &box) {
                                  EXPECT_EQ(box.text(), "<b>C:\\␇</b>\n\nReplace?");
                                  EXPECT_EQ(box.textFormat(), Qt::PlainText);
                                  EXPECT_EQ(box.windowTitle(), "Turf Desk");
                                  EXPECT_EQ(box.icon(), QMessageBox::Question);
                                  EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
                                  QTest::keyClick(&box, Qt::Key_Return);
                                });
  EXPECT_EQ(answer, BoxAnswer::Yes) << "the first button is the default";
}

TEST_F(MessageBoxesTest, ClosingABoxIsTheRefusal) {
  const auto escape = [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); };
  const auto close = [](QMessageBox &box) { box.close(); };
  EXPECT_EQ(Show({"?", "t", BoxButtons::YesNo, BoxIcon::Question}, escape), BoxAnswer::No);
  EXPECT_EQ(Show({"?", "t", BoxButtons::YesNo, BoxIcon::Question}, close), BoxAnswer::No);
  EXPECT_EQ(Show({"?", "t", BoxButtons::OkCancel, BoxIcon::Question}, escape), BoxAnswer::Cancel);
  EXPECT_EQ(Show({"!", "t", BoxButtons::Ok, BoxIcon::Stop}, close), BoxAnswer::Ok);
}

TEST_F(MessageBoxesTest, KeysPressedBeforeTheQuestionDoNotAnswerIt) {
  PendingKey key;
  key.Press(Qt::Key_Return);
  const auto refuse = [](QMessageBox &box) {
    if (QTest::qWaitForWindowActive(&box))
      QTest::keyClick(&box, Qt::Key_Escape);
  };
  EXPECT_EQ(Show({"?", "t", BoxButtons::YesNo, BoxIcon::Question}, refuse), BoxAnswer::No);
}

TEST_F(MessageBoxesTest, ABoxBelongsToTheMainWindowWhenNoneIsActive) {
  QWidget main;
  main.setAttribute(Qt::WA_ShowWithoutActivating);
  main.show();
  ASSERT_EQ(QApplication::activeWindow(), nullptr);
  Show({"!", "t", BoxButtons::Ok, BoxIcon::Information}, [&main](QMessageBox &box) {
    EXPECT_EQ(box.parentWidget(), &main);
    box.close();
  });
}

TEST_F(MessageBoxesTest, ATextOfManyLinesLeavesTheButtonsInReach) {
  std::string text;
  for (int i = 0; i < 2000; ++i)
    text += "Library " + std::to_string(i) + "\r\n";
  Show({text, "t", BoxButtons::Ok, BoxIcon::Stop}, [](QMessageBox &box) {
    EXPECT_LT(box.height(), box.screen()->availableSize().height());
    const auto *view = box.findChild<QPlainTextEdit *>();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->accessibleName(), box.text());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Description), box.text());
    EXPECT_TRUE(box.text().endsWith("Library 1999\n"));
    box.close();
  });
  Show({"C:\\" + std::string(3000, 'w'), "t", BoxButtons::Ok, BoxIcon::Stop}, [](QMessageBox &box) {
    EXPECT_LT(box.width(), box.screen()->availableSize().width());
    EXPECT_LT(box.height(), box.screen()->availableSize().height());
    box.close();
  });
}

} // namespace turfdesk
