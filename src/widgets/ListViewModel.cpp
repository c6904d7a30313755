// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/ListViewModel.h"

#include "widgets/QtText.h"

#include <utility>

namespace turfdesk {

ListViewModel::ListViewModel(ListView &list, QStringList columnTitles, QObject *parent)
    : QAbstractTableModel(parent), mList(list), mColumnTitles(std::move(columnTitles)) {
  mList.SetObserver(this);
}

ListViewModel::~ListViewModel() { mList.SetObserver(nullptr); }

QModelIndex ListViewModel::SelectedIndex() const {
  const Row *selected = mList.SelectedItem();
  return selected == nullptr ? QModelIndex() : index(static_cast<int>(mList.IndexOf(*selected)), 0);
}

int ListViewModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : static_cast<int>(mList.Count());
}

int ListViewModel::columnCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : static_cast<int>(mColumnTitles.size());
}

QVariant ListViewModel::data(const QModelIndex &index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid))
    return {};
  const Row &row = mList.At(static_cast<std::size_t>(index.row()));
  if (role == Qt::DisplayRole)
    return OneLine(index.column() == 0 ? row.Text() : row.SubItems(index.column()));
  if (role == Qt::CheckStateRole && HasCheckBox(index))
    return row.Checked() ? Qt::Checked : Qt::Unchecked;
  return {};
}

bool ListViewModel::setData(const QModelIndex &index, const QVariant &value, int role) {
  if (role != Qt::CheckStateRole || !index.isValid() || !HasCheckBox(index))
    return false;
  mList.At(static_cast<std::size_t>(index.row())).SetChecked(value.toInt() == Qt::Checked);
  emit ItemCheck(index.row());
  return true;
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  return mColumnTitles.value(section);
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex &index) const {
  if (!index.isValid())
    return Qt::NoItemFlags;
  const Qt::ItemFlags row = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  return HasCheckBox(index) ? row | Qt::ItemIsUserCheckable : row;
}

bool ListViewModel::HasCheckBox(const QModelIndex &index) const { return index.column() == 0 && mList.Checkboxes(); }

void ListViewModel::BeforeInsert(std::size_t index) {
  beginInsertRows({}, static_cast<int>(index), static_cast<int>(index));
}

void ListViewModel::AfterInsert(std::size_t) { endInsertRows(); }

void ListViewModel::BeforeRemove(std::size_t index) {
  beginRemoveRows({}, static_cast<int>(index), static_cast<int>(index));
}

void ListViewModel::AfterRemove(std::size_t) { endRemoveRows(); }

void ListViewModel::BeforeMove(std::size_t from, std::size_t to) {
  // The model's destination is the row before which the moved one is put, counted as the rows stand now.
  const auto source = static_cast<int>(from);
  const auto destination = static_cast<int>(to > from ? to + 1 : to);
  beginMoveRows({}, source, source, {}, destination);
}

void ListViewModel::AfterMove(std::size_t, std::size_t) { endMoveRows(); }

void ListViewModel::RowChanged(std::size_t index) {
  const auto row = static_cast<int>(index);
  emit dataChanged(this->index(row, 0), this->index(row, columnCount() - 1));
}

void ListViewModel::BeforeReset() { beginResetModel(); }

void ListViewModel::AfterReset() { endResetModel(); }

void ListViewModel::SelectionChanged() { emit SelectedItemChanged(); }

} // namespace turfdesk
