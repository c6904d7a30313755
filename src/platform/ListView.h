// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace turfdesk {

class ListView;

/// One row of a ListView. Its address stays the same until it is removed. All texts are UTF-8.
class Row {
public:
  Row(const Row &) = delete;
  Row &operator=(const Row &) = delete;

  const std::string &Key() const { return mKey; }
  const std::string &Tag() const { return mTag; }
  void SetTag(std::string_view tag);
  const std::string &Text() const { return mText; }
  /// In a sorted list the row moves to its new place.
  void SetText(std::string_view text);
  /// Text of a column, from 1; a column that was never set is "". Throws RuntimeError 9 for 0 or a negative index.
  const std::string &SubItems(int column) const;
  void SetSubItems(int column, std::string text);
  bool Checked() const { return mChecked; }
  void SetChecked(bool checked);

private:
  friend class ListView;
  explicit Row(ListView &list) : mList(list) {}

  ListView &mList;
  std::string mKey;
  std::string mTag;
  std::string mText;
  std::string mOrder;
  std::vector<std::string> mSubItems;
  bool mChecked = false;
};

/// Told of every change of a ListView, so that a screen can follow it. Indexes are 0-based.
class ListViewObserver {
public:
  ListViewObserver() = default;
  ListViewObserver(const ListViewObserver &) = delete;
  ListViewObserver &operator=(const ListViewObserver &) = delete;
  virtual ~ListViewObserver() = default;

  virtual void BeforeInsert(std::size_t index) = 0;
  virtual void AfterInsert(std::size_t index) = 0;
  virtual void BeforeRemove(std::size_t index) = 0;
  virtual void AfterRemove(std::size_t index) = 0;
  /// The row at from is about to stand at to, counted as it will stand afterwards.
  virtual void BeforeMove(std::size_t from, std::size_t to) = 0;
  virtual void AfterMove(std::size_t from, std::size_t to) = 0;
  virtual void RowChanged(std::size_t index) = 0;
  /// Everything is about to be different; no single changes are told until AfterReset.
  virtual void BeforeReset() = 0;
  virtual void AfterReset() = 0;
  /// Another row, or none, is the selected item.
  virtual void SelectionChanged() = 0;
};

/// The rows of a list control, without the control.
class ListView {
public:
  ListView() = default;
  ListView(const ListView &) = delete;
  ListView &operator=(const ListView &) = delete;
  ~ListView() = default;

  /// Adds a row at the end, or at its place in a sorted list. An empty key is no key and may repeat.
  /// Throws RuntimeError 35602 for a key that another row has (compared exactly).
  Row &Add(std::string_view key, std::string_view text);
  void Remove(Row &row);
  /// Removes the row with this key. Throws RuntimeError 9 when there is none.
  void RemoveByKey(std::string_view key);
  void Clear();

  std::size_t Count() const { return mRows.size(); }
  /// The row at a 0-based index, which must be below Count.
  Row &At(std::size_t index) const { return *mRows[index]; }
  std::size_t IndexOf(const Row &row) const;
  /// The row with this key, or null.
  Row *FindKey(std::string_view key) const;
  /// The first row, in row order, whose Tag begins with the text (case counts), or null.
  Row *FindItem(std::string_view tagBeginning) const;

  /// The selected item, or null. Removing it selects nothing.
  Row *SelectedItem() const { return mSelected; }
  /// Null takes the selection away.
  void Select(Row *row);

  /// Sorts by Text as people do (NameOrder.h), ties by Key, now and from now on.
  void SetSorted(bool sorted);
  bool Sorted() const { return mSorted; }

  /// Whether the rows have check boxes.
  void SetCheckboxes(bool checkboxes) { mCheckboxes = checkboxes; }
  bool Checkboxes() const { return mCheckboxes; }

  /// One observer at a time; null ends it. It is not owned.
  void SetObserver(ListViewObserver *observer) { mObserver = observer; }

  /// While one lives, changes are gathered: sorting and one reset notice come at its end. For filling many rows.
  class Update {
  public:
    explicit Update(ListView &list);
    Update(const Update &) = delete;
    Update &operator=(const Update &) = delete;
    ~Update();

  private:
    ListView &mList;
  };

private:
  friend class Row;

  bool Observed() const { return mObserver != nullptr && mUpdateDepth == 0; }
  bool KeepsOrder() const { return mSorted && mUpdateDepth == 0; }
  static bool StandsBefore(const Row &left, const Row &right);
  std::size_t SortedPlace(const Row &row) const;
  void PlaceAgain(std::size_t from);
  void TellChanged(const Row &row);
  void LinkTag(Row &row);
  void UnlinkTag(const Row &row);
  void IndexTags() const;

  std::vector<std::unique_ptr<Row>> mRows;
  std::unordered_map<std::string_view, Row *> mByKey;
  // Made when it is first asked for, and kept up from then on: loading a long list needs none.
  mutable std::multimap<std::string_view, Row *> mByTag;
  mutable bool mTagsIndexed = false;
  Row *mSelected = nullptr;
  ListViewObserver *mObserver = nullptr;
  int mUpdateDepth = 0;
  bool mSorted = false;
  bool mCheckboxes = false;
};

} // namespace turfdesk
