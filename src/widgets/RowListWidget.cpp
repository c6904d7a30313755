// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/RowListWidget.h"

#include "widgets/ItemToolTips.h"
#include "widgets/ListViewModel.h"
#include "widgets/RowDelegate.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace turfdesk {

namespace {

bool ComesFromKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

bool AsksForMenu(const QKeyEvent &event) {
  return event.key() == Qt::Key_Menu || (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

} // namespace

RowListWidget::RowListWidget(QWidget *parent) : QTreeView(parent) {
  setItemDelegate(new RowDelegate(this));
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setHeaderHidden(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  header()->setStretchLastSection(false);
  header()->setMinimumSectionSize(0);
}

void RowListWidget::ShowColumns() {
  mShowsColumns = true;
  setHeaderHidden(false);
  header()->setStretchLastSection(true);
  header()->setSectionsMovable(false);
  // Of a path, the end says most.
  setTextElideMode(Qt::ElideMiddle);
}

void RowListWidget::SetList(ListView &list, const QStringList &columnTitles) {
  mModel = new ListViewModel(list, columnTitles, this);
  setModel(mModel);
  if (!mShowsColumns)
    HideDataColumns();
  connect(mModel, &ListViewModel::SelectedItemChanged, this, &RowListWidget::ShowSelectedItem);
  connect(mModel, &ListViewModel::ItemCheck, this, [this](int row) {
    // A click on a check box alone would not bring the keyboard there.
    setCurrentIndex(mModel->index(row, 0));
    emit ItemCheck(row);
  });
  connect(mModel, &ListViewModel::modelReset, this, &RowListWidget::ShowSelectedItem);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &RowListWidget::TakeSelection);
  ShowSelectedItem();
}

void RowListWidget::HideDataColumns() {
  for (int column = 1; column < mModel->columnCount(); ++column)
    setColumnHidden(column, true);
}

void RowListWidget::ShowSelectedItem() {
  const QModelIndex selected = mModel->SelectedIndex();
  // The current index goes too: when its row is removed, the view would select the row after it by itself.
  if (selected.isValid())
    setCurrentIndex(selected);
  else
    selectionModel()->clear();
}

void RowListWidget::TakeSelection() {
  const QModelIndexList rows = selectionModel()->selectedRows();
  if (rows.isEmpty()) {
    mModel->List().Select(nullptr);
    return;
  }
  mPlace = rows.first();
  mModel->List().Select(&mModel->List().At(static_cast<std::size_t>(mPlace.row())));
}

void RowListWidget::focusInEvent(QFocusEvent *event) {
  QTreeView::focusInEvent(event);
  // The view may have made a row current that is not the selected item.
  if (mModel != nullptr)
    ShowSelectedItem();
  emit GotFocus();
  if (ComesFromKeyboard(event->reason()))
    SelectRowOfKeyboard();
}

void RowListWidget::SelectRowOfKeyboard() {
  if (mModel == nullptr || mModel->rowCount() == 0 || mModel->SelectedIndex().isValid())
    return;
  setCurrentIndex(mPlace.isValid() ? QModelIndex(mPlace) : mModel->index(0, 0));
}

void RowListWidget::keyPressEvent(QKeyEvent *event) {
  if (AsksForMenu(*event)) {
    RequestMenuAtSelection();
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && selectionModel() != nullptr && selectionModel()->hasSelection()) {
    emit DoubleClicked();
    // Where nobody cares, the default button of the window does.
    event->ignore();
    return;
  }
  // Keys work on rows: names and check boxes are in the first column, wherever in the row the user has clicked.
  if (currentIndex().column() > 0)
    setCurrentIndex(currentIndex().siblingAtColumn(0));
  QTreeView::keyPressEvent(event);
}

void RowListWidget::mouseReleaseEvent(QMouseEvent *event) {
  QTreeView::mouseReleaseEvent(event);
  if (event->button() == Qt::RightButton)
    RequestMenu(event->globalPosition().toPoint());
}

void RowListWidget::mouseDoubleClickEvent(QMouseEvent *event) {
  QTreeView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton)
    emit DoubleClicked();
}

void RowListWidget::contextMenuEvent(QContextMenuEvent *event) {
  event->accept();
  // Window systems differ in whether the press or the release of the button makes this event; the release counts.
  if (event->reason() != QContextMenuEvent::Mouse)
    RequestMenuAtSelection();
}

void RowListWidget::RequestMenuAtSelection() {
  const QRect row = visualRect(currentIndex()).intersected(viewport()->rect());
  RequestMenu(viewport()->mapToGlobal(row.isEmpty() ? QPoint(0, 0) : QPoint(row.left() + row.height(), row.bottom())));
}

void RowListWidget::RequestMenu(const QPoint &globalPosition) {
  if (mModel != nullptr && mModel->rowCount() > 0)
    emit ContextMenuRequested(globalPosition);
}

void RowListWidget::resizeEvent(QResizeEvent *event) {
  QTreeView::resizeEvent(event);
  if (header()->count() > 0)
    header()->resizeSection(0, mShowsColumns ? viewport()->width() * 2 / 5 : viewport()->width());
}

bool RowListWidget::viewportEvent(QEvent *event) {
  return ShowWholeTextOfItem(*this, event) || QTreeView::viewportEvent(event);
}

} // namespace turfdesk
