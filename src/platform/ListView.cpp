// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/ListView.h"

#include "platform/NameOrder.h"
#include "platform/RuntimeError.h"

#include <algorithm>

namespace turfdesk {

namespace {

// What the rows of courses need, so that filling one takes memory once.
constexpr std::size_t UsualColumns = 7;

} // namespace

void Row::SetTag(std::string_view tag) {
  if (tag == mTag)
    return;
  mList.UnlinkTag(*this);
  mTag = tag;
  mList.LinkTag(*this);
  mList.TellChanged(*this);
}

void Row::SetText(std::string_view text) {
  if (text == mText)
    return;
  // The row is still found by its old place, so that place is looked up before the text changes.
  const std::size_t from = mList.KeepsOrder() ? mList.IndexOf(*this) : 0;
  mText = text;
  mOrder = NameOrder(text);
  if (mList.KeepsOrder())
    mList.PlaceAgain(from);
  mList.TellChanged(*this);
}

const std::string &Row::SubItems(int column) const {
  static const std::string empty;
  if (column < 1)
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  const auto index = static_cast<std::size_t>(column - 1);
  return index < mSubItems.size() ? mSubItems[index] : empty;
}

void Row::SetSubItems(int column, std::string text) {
  if (column < 1)
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  const auto index = static_cast<std::size_t>(column - 1);
  if (index >= mSubItems.size()) {
    mSubItems.reserve(UsualColumns);
    mSubItems.resize(index + 1);
  }
  mSubItems[index] = std::move(text);
  mList.TellChanged(*this);
}

void Row::SetChecked(bool checked) {
  if (checked == mChecked)
    return;
  mChecked = checked;
  mList.TellChanged(*this);
}

bool ListView::StandsBefore(const Row &left, const Row &right) {
  const int byText = left.mOrder.compare(right.mOrder);
  return byText != 0 ? byText < 0 : left.mKey < right.mKey;
}

Row &ListView::Add(std::string_view key, std::string_view text) {
  std::unique_ptr<Row> owned(new Row(*this));
  Row &row = *owned;
  row.mKey = key;
  if (!key.empty() && !mByKey.emplace(row.mKey, &row).second)
    throw RuntimeError(ErrorNumber::KeyNotUnique);
  row.mText = text;
  row.mOrder = NameOrder(text);

  const std::size_t index = KeepsOrder() ? SortedPlace(row) : mRows.size();
  if (Observed())
    mObserver->BeforeInsert(index);
  mRows.insert(mRows.begin() + static_cast<std::ptrdiff_t>(index), std::move(owned));
  if (Observed())
    mObserver->AfterInsert(index);
  return row;
}

void ListView::Remove(Row &row) {
  const std::size_t index = IndexOf(row);
  if (mSelected == &row)
    Select(nullptr);
  if (Observed())
    mObserver->BeforeRemove(index);
  UnlinkTag(row);
  if (!row.mKey.empty())
    mByKey.erase(row.mKey);
  mRows.erase(mRows.begin() + static_cast<std::ptrdiff_t>(index));
  if (Observed())
    mObserver->AfterRemove(index);
}

void ListView::RemoveByKey(std::string_view key) {
  Row *row = FindKey(key);
  if (row == nullptr)
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  Remove(*row);
}

void ListView::Clear() {
  const Update update(*this);
  Select(nullptr);
  mByTag.clear();
  mTagsIndexed = false;
  mByKey.clear();
  mRows.clear();
}

std::size_t ListView::IndexOf(const Row &row) const {
  if (KeepsOrder())
    if (const std::size_t place = SortedPlace(row); place < mRows.size() && mRows[place].get() == &row)
      return place;
  const auto found =
      std::find_if(mRows.begin(), mRows.end(), [&row](const auto &candidate) { return candidate.get() == &row; });
  if (found == mRows.end())
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return static_cast<std::size_t>(found - mRows.begin());
}

Row *ListView::FindKey(std::string_view key) const {
  const auto found = mByKey.find(key);
  return found == mByKey.end() ? nullptr : found->second;
}

Row *ListView::FindItem(std::string_view tagBeginning) const {
  if (tagBeginning.empty())
    return mRows.empty() ? nullptr : mRows.front().get();
  IndexTags();
  std::vector<Row *> matches;
  for (auto candidate = mByTag.lower_bound(tagBeginning);
       candidate != mByTag.end() && candidate->first.starts_with(tagBeginning); ++candidate)
    matches.push_back(candidate->second);
  // A whole key matches one row, whose place then need not be looked up.
  if (matches.size() < 2)
    return matches.empty() ? nullptr : matches.front();
  return *std::min_element(matches.begin(), matches.end(),
                           [this](const Row *left, const Row *right) { return IndexOf(*left) < IndexOf(*right); });
}

void ListView::Select(Row *row) {
  if (row == mSelected)
    return;
  mSelected = row;
  if (Observed())
    mObserver->SelectionChanged();
}

void ListView::SetSorted(bool sorted) {
  const Update update(*this);
  mSorted = sorted;
}

std::size_t ListView::SortedPlace(const Row &row) const {
  const auto place = std::lower_bound(mRows.begin(), mRows.end(), row, [](const auto &candidate, const Row &wanted) {
    return StandsBefore(*candidate, wanted);
  });
  return static_cast<std::size_t>(place - mRows.begin());
}

void ListView::PlaceAgain(std::size_t from) {
  const auto at = [this](std::size_t index) { return mRows.begin() + static_cast<std::ptrdiff_t>(index); };
  std::unique_ptr<Row> moved = std::move(*at(from));
  mRows.erase(at(from));
  const std::size_t to = SortedPlace(*moved);
  mRows.insert(at(from), std::move(moved));
  if (to == from)
    return;
  if (Observed())
    mObserver->BeforeMove(from, to);
  if (from < to)
    std::rotate(at(from), at(from) + 1, at(to) + 1);
  else
    std::rotate(at(to), at(from), at(from) + 1);
  if (Observed())
    mObserver->AfterMove(from, to);
}

void ListView::TellChanged(const Row &row) {
  if (Observed())
    mObserver->RowChanged(IndexOf(row));
}

void ListView::IndexTags() const {
  if (mTagsIndexed)
    return;
  for (const auto &row : mRows)
    if (!row->mTag.empty())
      mByTag.emplace(row->mTag, row.get());
  mTagsIndexed = true;
}

void ListView::LinkTag(Row &row) {
  if (mTagsIndexed && !row.mTag.empty())
    mByTag.emplace(row.mTag, &row);
}

void ListView::UnlinkTag(const Row &row) {
  if (!mTagsIndexed || row.mTag.empty())
    return;
  const auto [first, last] = mByTag.equal_range(row.mTag);
  const auto found = std::find_if(first, last, [&row](const auto &entry) { return entry.second == &row; });
  if (found != last)
    mByTag.erase(found);
}

ListView::Update::Update(ListView &list) : mList(list) {
  if (mList.Observed())
    mList.mObserver->BeforeReset();
  ++mList.mUpdateDepth;
}

ListView::Update::~Update() {
  if (--mList.mUpdateDepth > 0)
    return;
  if (mList.mSorted)
    std::stable_sort(mList.mRows.begin(), mList.mRows.end(),
                     [](const auto &left, const auto &right) { return StandsBefore(*left, *right); });
  if (mList.mObserver != nullptr)
    mList.mObserver->AfterReset();
}

} // namespace turfdesk
