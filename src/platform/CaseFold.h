// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace turfdesk {

/// The text (UTF-8) in lower case, equal for two texts exactly when Windows' file systems and registry take them for
/// one name, as CompareStringOrdinal does: letter by letter, so that "Straße" is not "Strasse", nor a letter with an
/// accent the same letter followed by one. Bytes that are no UTF-8 stay as they are.
std::string FoldCase(std::string_view text);

/// Are the two texts one name to Windows?
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

/// Sorts by a key made of each item's name (UTF-8), and items whose keys are equal by the bytes of their names.
template <class Item, class NameOf, class KeyOf>
void SortByKey(std::vector<Item> &items, const NameOf &nameOf, const KeyOf &keyOf) {
  // Each key is made once, and not at every comparison.
  std::vector<std::pair<std::string, Item>> keyed;
  keyed.reserve(items.size());
  for (Item &item : items)
    keyed.emplace_back(keyOf(nameOf(item)), std::move(item));
  std::sort(keyed.begin(), keyed.end(), [&nameOf](const auto &left, const auto &right) {
    return left.first != right.first ? left.first < right.first : nameOf(left.second) < nameOf(right.second);
  });
  std::transform(keyed.begin(), keyed.end(), items.begin(), [](auto &pair) { return std::move(pair.second); });
}

/// Sorts by the names of the items without regard to case.
template <class Item, class NameOf> void SortIgnoringCase(std::vector<Item> &items, const NameOf &nameOf) {
  SortByKey(items, nameOf, FoldCase);
}

} // namespace turfdesk
