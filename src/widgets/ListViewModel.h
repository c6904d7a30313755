// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"

#include <QAbstractTableModel>
#include <QStringList>

namespace turfdesk {

/// Shows the rows of a ListView: column 0 is a row's Text, the others its SubItems. The list must outlive the model.
class ListViewModel final : public QAbstractTableModel, private ListViewObserver {
  Q_OBJECT

public:
  ListViewModel(ListView &list, QStringList columnTitles, QObject *parent);
  ~ListViewModel() override;

  ListView &List() const { return mList; }
  /// Where the selected item stands; invalid when there is none.
  QModelIndex SelectedIndex() const;

  int rowCount(const QModelIndex &parent = {}) const override;
  int columnCount(const QModelIndex &parent = {}) const override;
  QVariant data(const QModelIndex &index, int role) const override;
  bool setData(const QModelIndex &index, const QVariant &value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
  /// The list has another selected item, or none.
  void SelectedItemChanged();
  /// The user set or cleared the check box of a row.
  void ItemCheck(int row);

private:
  void BeforeInsert(std::size_t index) override;
  void AfterInsert(std::size_t index) override;
  void BeforeRemove(std::size_t index) override;
  void AfterRemove(std::size_t index) override;
  void BeforeMove(std::size_t from, std::size_t to) override;
  void AfterMove(std::size_t from, std::size_t to) override;
  void RowChanged(std::size_t index) override;
  void BeforeReset() override;
  void AfterReset() override;
  void SelectionChanged() override;

  bool HasCheckBox(const QModelIndex &index) const;

  ListView &mList;
  QStringList mColumnTitles;
};

} // namespace turfdesk
