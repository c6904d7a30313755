// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/DirectoryList.h"
#include "widgets/DriveList.h"
#include "widgets/FileList.h"
#include "widgets/FolderPicker.h"
#include "widgets/PathBox.h"

#include "gui/FakeFolders.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QInputDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

class DirectoryListTest : public testing::Test {
protected:
  DirectoryListTest() {
    list.SetFolders(folders);
    list.resize(200, 200);
    list.show();
    changes.clear();
  }

  QStringList Entries() const {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
      texts.append(list.item(row)->text());
    return texts;
  }
  void ClickEntry(int row) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
  }
  void DoubleClickEntry(int row) {
    ClickEntry(row);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
  }

  test::FakeFolders folders;
  DirectoryList list;
  QSignalSpy changes{&list, &DirectoryList::Change};
  QSignalSpy failures{&list, &DirectoryList::OpenFailed};
};

} // namespace

TEST_F(DirectoryListTest, ShowsAncestorsTheFolderAndItsChildren) {
  EXPECT_EQ(list.Path(), "C:\\");
  list.SetPath(R"(C:\Games)");
  EXPECT_EQ(Entries(), (QStringList{"C:\\", "Games", "Marrowfell", "Locked"}));
  EXPECT_EQ(list.HighlightedPath(), R"(C:\Games)");
  EXPECT_EQ(changes.count(), 1);
  list.SetPath(R"(C:\Games)");
  EXPECT_EQ(changes.count(), 1) << "reading the open folder anew is no change";
}

TEST_F(DirectoryListTest, AHighlightedEntryOpensByDoubleClickOrEnter) {
  list.SetPath(R"(C:\Games)");
  ClickEntry(2);
  EXPECT_EQ(list.HighlightedPath(), R"(C:\Games\Marrowfell)");
  EXPECT_EQ(list.Path(), R"(C:\Games)");
  DoubleClickEntry(2);
  EXPECT_EQ(list.Path(), R"(C:\Games\Marrowfell)");
  EXPECT_EQ(Entries(), (QStringList{"C:\\", "Games", "Marrowfell"}));
  ClickEntry(1);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, list.visualItemRect(list.item(1)).center());
  EXPECT_EQ(list.selectedItems().size(), 0);
  EXPECT_EQ(list.HighlightedPath(), R"(C:\Games\Marrowfell)") << "with nothing highlighted it is the open folder";
  QTest::keyClick(&list, Qt::Key_Home);
  EXPECT_EQ(list.Path(), R"(C:\Games\Marrowfell)");
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(list.Path(), "C:\\");
}

TEST_F(DirectoryListTest, AFolderThatCannotBeOpenedLeavesThePlace) {
  list.SetPath(R"(C:\Games)");
  DoubleClickEntry(3);
  ASSERT_EQ(failures.count(), 1);
  EXPECT_EQ(failures[0][0].toString(), "Path/File access error");
  EXPECT_THROW(list.SetPath("A:"), RuntimeError);
  EXPECT_EQ(list.Path(), R"(C:\Games)");
  EXPECT_EQ(Entries(), (QStringList{"C:\\", "Games", "Marrowfell", "Locked"}));
}

TEST(DriveListTest, TellsOfAnotherDriveAndOfTheUsersChoice) {
  test::FakeFolders folders;
  DriveList drives;
  drives.SetFolders(folders);
  EXPECT_EQ(drives.Drive(), "C:");
  const QSignalSpy changes(&drives, &DriveList::Change);
  drives.SetDrive(R"(c:\Games)");
  EXPECT_EQ(changes.count(), 0);
  drives.SetDrive("d:");
  EXPECT_EQ(drives.Drive(), "D:");
  EXPECT_EQ(changes.count(), 1);
  EXPECT_THROW(drives.SetDrive("Q:\\"), RuntimeError);
  EXPECT_EQ(drives.Drive(), "D:");
  drives.show();
  QTest::keyClick(&drives, Qt::Key_Up);
  EXPECT_EQ(drives.Drive(), "C:");
  EXPECT_EQ(changes.count(), 2);
}

TEST(PathBoxTest, ShowsTheEndAndHasTheWholeInItsToolTip) {
  PathBox box;
  box.resize(100, box.sizeHint().height());
  box.show();
  const auto toolTip = [&box] {
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), box.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&box, &event);
    return QToolTip::text().toStdString();
  };
  box.SetPath("C:\\a");
  EXPECT_EQ(toolTip(), "");
  const std::string folder = "C:\\<i>" + std::string(60, 'x');
  box.SetPath(folder + "\\a.hlc");
  const QImage before = box.grab().toImage();
  box.SetPath(folder + "\\b.hlc");
  EXPECT_NE(box.grab().toImage(), before) << "the file's name is seen";
  EXPECT_TRUE(toolTip().starts_with("<div style=\"white-space:pre\">C:\\&lt;i&gt;x")) << "one line, no markup";
  EXPECT_EQ(box.Path(), folder + "\\b.hlc");
}

TEST(FolderPickerTest, MakesAFolderInTheOpenOneAndOpensIt) {
  test::FakeFolders folders;
  DriveList drives;
  DirectoryList directories;
  QPushButton button("New Folder...");
  std::vector<std::string> told;
  FolderPicker picker(drives, directories, [&told](const std::string &words) { told.push_back(words); });
  picker.OfferNewFolder(button);
  picker.SetFolders(folders);
  picker.SetPath(R"(C:\Games)");
  directories.show();
  QStringList typed = {"con", R"(a\b)", "dot.", "", "Marrowfell", " By the sea "};
  QTimer user;
  user.callOnTimeout([&typed] {
    auto *dialog = dynamic_cast<QInputDialog *>(QApplication::activeModalWidget());
    if (dialog == nullptr)
      return;
    dialog->setTextValue(typed.isEmpty() ? "" : typed.takeFirst());
    typed.isEmpty() && dialog->textValue().isEmpty() ? dialog->reject() : dialog->accept();
  });
  user.start(1);
  button.click();
  EXPECT_EQ(directories.Path(), R"(C:\Games\By the sea)");
  EXPECT_EQ(told.size(), 5U);
  EXPECT_EQ(told.back(), "There is a file or folder of this name already.");

  typed = {"Deeper"};
  QContextMenuEvent rightClick(QContextMenuEvent::Mouse, {5, 5}, directories.viewport()->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(directories.viewport(), &rightClick);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_N);
  EXPECT_EQ(directories.Path(), R"(C:\Games\By the sea\Deeper)");
}

TEST(FileListTest, ShowsSymbolsForWhatCannotBeSeenAndKeepsTheName) {
  const std::string name = "a\u202Ecod.hlc";
  test::FakeFolders folders;
  folders.tree[R"(C:\Games)"].files = {name};
  FileList files;
  files.SetFolders(folders);
  files.SetPath(R"(C:\Games)");
  EXPECT_EQ(files.item(0)->text(), "a⇄cod.hlc");
  EXPECT_EQ(files.List(0), name);
  PathBox box;
  box.SetPath(name);
  EXPECT_EQ(box.text(), "a⇄cod.hlc");
  EXPECT_EQ(box.Path(), name);
  box.setText("b.hlc");
  EXPECT_EQ(box.Path(), "b.hlc");
}

TEST(FileListTest, SelectsSeveralFilesAndForgetsThemWithTheFolder) {
  test::FakeFolders folders;
  FileList files;
  files.SetFolders(folders);
  files.SetPattern("*.hlc;*.hlz");
  files.SetPath(R"(C:\Games)");
  EXPECT_EQ(folders.lastPattern, "*.hlc;*.hlz");
  files.show();
  const auto click = [&files](int row, Qt::KeyboardModifiers keys) {
    QTest::mouseClick(files.viewport(), Qt::LeftButton, keys, files.visualItemRect(files.item(row)).center());
  };
  click(0, {});
  click(2, Qt::ShiftModifier);
  click(1, Qt::ControlModifier);
  ASSERT_EQ(files.ListCount(), 3);
  EXPECT_TRUE(files.Selected(0) && !files.Selected(1) && files.Selected(2));
  EXPECT_EQ(files.List(1), "beta.HLC");
  EXPECT_THROW(files.SetPath(R"(C:\Gone)"), RuntimeError);
  EXPECT_EQ(files.ListCount(), 0) << "files of another folder would mislead";
  files.SetPath(R"(C:\Games)");
  EXPECT_FALSE(files.Selected(0));
}

} // namespace turfdesk
