// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace turfdesk {

/// The text in the form that is equal for texts that differ only in case: Unicode case folding of composed (NFC) text.
/// Bytes that are no UTF-8 stay as they are.
std::string FoldCase(std::string_view text);

/// Do the two texts differ in nothing but case?
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

/// Sorts by the names of the items (UTF-8) without regard to case, and names that differ in nothing else by their
/// bytes.
template <class Item, class NameOf> void SortIgnoringCase(std::vector<Item> &items, const NameOf &nameOf) {
  // Folded once each, and not at every comparison.
  std::vector<std::pair<std::string, Item>> folded;
  folded.reserve(items.size());
  for (Item &item : items)
    folded.emplace_back(FoldCase(nameOf(item)), std::move(item));
  std::sort(folded.begin(), folded.end(), [&nameOf](const auto &left, const auto &right) {
    return left.first != right.first ? left.first < right.first : nameOf(left.second) < nameOf(right.second);
  });
  std::transform(folded.begin(), folded.end(), items.begin(), [](auto &pair) { return std::move(pair.second); });
}

} // namespace turfdesk
