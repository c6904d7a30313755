// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/CaseFold.h"

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The letters of a text (UTF-8) without case and accents: "Öresund" and "ORESUND" both give "oresund". Letters that
/// people look up as others, such as ø and æ, give those. Bytes that are no UTF-8 stay as they are.
std::string BaseLetters(std::string_view text);

/// A key whose bytes are in the order in which people look for names: by their base letters, names that have the same
/// by accents, and those that have the same by case, small letters first. It begins with BaseLetters(text).
std::string NameOrder(std::string_view text);

/// Sorts by the names of the items (UTF-8) as people do, and names that they take for the same by their bytes.
template <class Item, class NameOf> void SortForPeople(std::vector<Item> &items, const NameOf &nameOf) {
  SortByKey(items, nameOf, NameOrder);
}

} // namespace turfdesk
