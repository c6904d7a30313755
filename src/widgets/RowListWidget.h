// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "widgets/TypeAhead.h"

#include <QPersistentModelIndex>
#include <QStringList>
#include <QTreeView>

namespace turfdesk {

class ListViewModel;

/// A list view in report form on a ListView. Column 0 is as wide as the control; column 1 begins beyond its right edge
/// and the others are hidden, for they hold a row's data. One row at most is selected, and it is the ListView's
/// selected item: a change on either side shows on the other. Where the ListView has check boxes, a click on one or
/// the space bar changes it.
class RowListWidget final : public QTreeView {
  Q_OBJECT

public:
  explicit RowListWidget(QWidget *parent = nullptr);

  /// Shows all columns side by side, under their titles. Called before SetList.
  void ShowColumns();
  /// Shows the rows of a list, which must outlive the control.
  void SetList(ListView &list, const QStringList &columnTitles);

  void keyboardSearch(const QString &typed) override { mTypeAhead.Search(*this, typed); }

signals:
  void GotFocus();
  /// A double click anywhere in the control, or Enter on the selected row.
  void DoubleClicked();
  /// The user set or cleared the check box of a row.
  void ItemCheck(int row);
  /// The right button was released over the control, or the keyboard asks for the menu. Never for an empty list.
  void ContextMenuRequested(const QPoint &globalPosition);

protected:
  void focusInEvent(QFocusEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void contextMenuEvent(QContextMenuEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  bool viewportEvent(QEvent *event) override;
  void updateGeometries() override;

private:
  void HideDataColumns();
  void ShowSelectedItem();
  void TakeSelection();
  void SelectRowOfKeyboard();
  void RequestMenu(const QPoint &globalPosition);
  void RequestMenuAtSelection();

  ListViewModel *mModel = nullptr;
  bool mShowsColumns = false;
  /// The row selected last: where the keyboard goes on when it comes back to the list.
  QPersistentModelIndex mPlace;
  TypeAhead mTypeAhead;
};

} // namespace turfdesk
