// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/ListViewModel.h"
#include "widgets/RowListWidget.h"

#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <random>

namespace turfdesk {

namespace {

using Tester = QAbstractItemModelTester;

/// Texts of the list's rows, as the model shows them.
QStringList ShownTexts(const QAbstractItemModel &model) {
  QStringList texts;
  for (int row = 0; row < model.rowCount(); ++row)
    texts.append(model.index(row, 0).data().toString());
  return texts;
}

class RowListTest : public testing::Test {
protected:
  void Fill(const std::vector<std::string> &names) {
    rows.SetSorted(true);
    for (const std::string &name : names)
      rows.Add(name, name).SetSubItems(1, "C:\\" + name + ".hlc");
    list.SetList(rows, {"Name", "Filename", "Size"});
    list.resize(200, 150);
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
  }

  QPoint Middle(int row) { return list.visualRect(list.model()->index(row, 0)).center(); }
  std::string Selected() { return rows.SelectedItem() == nullptr ? "" : rows.SelectedItem()->Text(); }

  ListView rows;
  RowListWidget list;
  QSignalSpy menus{&list, &RowListWidget::ContextMenuRequested};
  QSignalSpy doubleClicks{&list, &RowListWidget::DoubleClicked};
};

} // namespace

TEST(ListViewModelTest, FollowsEveryChangeOfTheList) {
  ListView rows;
  rows.SetSorted(true);
  ListViewModel model(rows, {"Name", "File"}, nullptr);
  const Tester tester(&model, Tester::FailureReportingMode::Fatal);
  std::mt19937 random(7);
  for (int step = 0; step < 400; ++step) {
    const std::string name = "row " + std::to_string(random() % 50);
    Row *row = rows.FindKey(name);
    if (row == nullptr)
      rows.Add(name, name).SetSubItems(1, "file");
    else if (random() % 3 == 0)
      rows.Remove(*row);
    else
      row->SetText(std::to_string(random() % 100));
    if (random() % 60 == 0)
      rows.Clear();
    ASSERT_EQ(model.rowCount(), static_cast<int>(rows.Count()));
    if (rows.Count() > 0)
      rows.Select(&rows.At(random() % rows.Count()));
  }
  QStringList expected;
  for (std::size_t i = 0; i < rows.Count(); ++i)
    expected.append(QString::fromStdString(rows.At(i).Text()));
  EXPECT_EQ(ShownTexts(model), expected);
  EXPECT_EQ(model.SelectedIndex().row(), static_cast<int>(rows.IndexOf(*rows.SelectedItem())));
}

TEST(ListViewModelTest, PersistentPlacesFollowARowThatMoves) {
  ListView rows;
  rows.SetSorted(true);
  for (const char *name : {"b", "d", "f", "h"})
    rows.Add(name, name);
  ListViewModel model(rows, {"Name"}, nullptr);
  const Tester tester(&model, Tester::FailureReportingMode::Fatal);
  const QPersistentModelIndex moved = model.index(1, 0);
  const QPersistentModelIndex passed = model.index(2, 0);
  rows.FindKey("d")->SetText("g");
  EXPECT_EQ(moved.row(), 2);
  EXPECT_EQ(passed.row(), 1);
  rows.FindKey("d")->SetText("a");
  EXPECT_EQ(moved.row(), 0);
  EXPECT_EQ(moved.data().toString(), "a");
}

TEST(ListViewModelTest, ChecksRowsOnlyWhereTheListHasCheckBoxes) {
  ListView rows;
  Row &row = rows.Add("k", "two\r\nlines");
  ListViewModel model(rows, {"Name", "File"}, nullptr);
  const QModelIndex first = model.index(0, 0);
  EXPECT_EQ(first.data().toString(), "two␍␊lines") << "a row has one line";
  EXPECT_FALSE(model.setData(first, Qt::Checked, Qt::CheckStateRole));
  rows.SetCheckboxes(true);
  EXPECT_FALSE(model.setData(model.index(0, 1), Qt::Checked, Qt::CheckStateRole));
  EXPECT_TRUE(model.setData(first, Qt::Checked, Qt::CheckStateRole));
  EXPECT_TRUE(row.Checked());
  EXPECT_EQ(first.data(Qt::CheckStateRole), Qt::Checked);
}

TEST_F(RowListTest, FirstColumnKeepsTheControlsWidth) {
  Fill({"one"});
  EXPECT_EQ(list.columnWidth(0), list.viewport()->width());
  list.resize(320, 150);
  EXPECT_EQ(list.columnWidth(0), list.viewport()->width());
  EXPECT_GE(list.visualRect(list.model()->index(0, 1)).left(), list.viewport()->width());
  EXPECT_TRUE(list.isColumnHidden(2));
  rows.Select(&rows.At(0));
  QTest::keyClick(&list, Qt::Key_Right);
  EXPECT_EQ(list.visualRect(list.model()->index(0, 0)).left(), 0) << "nothing scrolls sideways";
}

TEST_F(RowListTest, SelectionIsTheSameOnBothSides) {
  Fill({"a", "b", "c"});
  EXPECT_EQ(Selected(), "");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, Middle(1));
  EXPECT_EQ(Selected(), "b");
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(Selected(), "c");
  rows.Select(rows.FindKey("a"));
  EXPECT_EQ(list.selectionModel()->selectedRows().value(0).row(), 0);
  rows.Select(nullptr);
  EXPECT_FALSE(list.selectionModel()->hasSelection());
  rows.Select(rows.FindKey("b"));
  rows.RemoveByKey("b");
  EXPECT_EQ(Selected(), "") << "removing the selected item selects nothing";
  EXPECT_FALSE(list.selectionModel()->hasSelection());
  {
    const ListView::Update update(rows);
    rows.Clear();
    rows.Add("z", "z");
    rows.Select(&rows.At(0));
  }
  EXPECT_EQ(list.selectionModel()->selectedRows().size(), 1);
}

TEST_F(RowListTest, TypingFindsARowWithoutRegardToCaseAndAccents) {
  Fill({"Ashdown", "Birch", "Élan", "elm", "Elmswood", "Öresund", "Ørsted"});
  rows.Select(&rows.At(0));
  const std::pair<QString, const char *> cases[] = {{"elms", "Elmswood"}, {"b", "Birch"},   {"o", "Öresund"},
                                                    {"ör", "Ørsted"},     {"oo", "Ørsted"}, {"É", "Élan"},
                                                    {"x", "Élan"},        {"ors", "Ørsted"}};
  for (const auto &[typed, found] : cases) {
    for (const QChar letter : typed)
      QTest::sendKeyEvent(QTest::Click, &list, Qt::Key_O, QString(letter), Qt::NoModifier);
    EXPECT_EQ(Selected(), found) << typed.toStdString();
    QTest::qWait(QApplication::keyboardInputInterval() + 100);
  }
}

TEST_F(RowListTest, MenuComesByReleaseAndByKeyboardButNotForAnEmptyList) {
  Fill({"a", "b"});
  QTest::mousePress(list.viewport(), Qt::RightButton, {}, Middle(1));
  QContextMenuEvent ofSomeSystems(QContextMenuEvent::Mouse, Middle(1), list.viewport()->mapToGlobal(Middle(1)));
  QApplication::sendEvent(list.viewport(), &ofSomeSystems);
  EXPECT_EQ(menus.count(), 0);
  EXPECT_EQ(Selected(), "b");
  QTest::mouseRelease(list.viewport(), Qt::RightButton, {}, Middle(1));
  ASSERT_EQ(menus.count(), 1);
  EXPECT_EQ(menus[0][0].toPoint(), list.viewport()->mapToGlobal(Middle(1)));
  QTest::keyClick(&list, Qt::Key_Menu);
  QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ(menus.count(), 3);
  rows.Clear();
  QTest::keyClick(&list, Qt::Key_Menu);
  QTest::mouseClick(list.viewport(), Qt::RightButton, {}, {10, 10});
  EXPECT_EQ(menus.count(), 3);
}

TEST_F(RowListTest, ACheckBoxChangesByAClickOnItAndByTheSpaceBar) {
  QSignalSpy checks(&list, &RowListWidget::ItemCheck);
  rows.SetCheckboxes(true);
  list.ShowColumns();
  Fill({"a", "b"});
  const QRect row = list.visualRect(list.model()->index(1, 0));
  EXPECT_LT(row.right(), list.viewport()->width() / 2) << "there is room for the other columns";
  const QPoint box(row.left() + row.height() / 2, row.center().y());
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, box);
  EXPECT_TRUE(rows.At(1).Checked());
  EXPECT_EQ(Selected(), "b") << "where the keyboard goes on";
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, Middle(1));
  EXPECT_TRUE(rows.At(1).Checked()) << "beside the box";
  const QPoint otherColumn = list.visualRect(list.model()->index(1, 1)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, otherColumn);
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_FALSE(rows.At(1).Checked()) << "wherever in the row the user has clicked";
  QTest::keyClick(&list, Qt::Key_Up);
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_TRUE(rows.At(0).Checked());
  EXPECT_EQ(checks, (QList<QList<QVariant>>{{1}, {1}, {0}}));
  rows.At(1).SetChecked(true);
  EXPECT_EQ(checks.count(), 3) << "only what the user does counts";

  rows.SetCheckboxes(false);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, box);
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_TRUE(rows.At(1).Checked());
}

TEST_F(RowListTest, DoubleClickAndEnterAreOneThing) {
  Fill({"a", "b"});
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(doubleClicks.count(), 0) << "no row is selected";
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, Middle(1));
  EXPECT_EQ(doubleClicks.count(), 1);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(doubleClicks.count(), 2);
  QTest::mouseDClick(list.viewport(), Qt::RightButton, {}, Middle(1));
  EXPECT_EQ(doubleClicks.count(), 2);
}

} // namespace turfdesk
