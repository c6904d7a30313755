// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string_view>

namespace turfdesk {

/// The part of a path up to the next separator of the kind; path becomes what follows that separator.
template <class IsEnd> std::string_view NextName(std::string_view &path, IsEnd isEnd) {
  std::size_t length = 0;
  while (length < path.size() && !isEnd(path[length]))
    ++length;
  const std::string_view name = path.substr(0, length);
  path.remove_prefix(length < path.size() ? length + 1 : length);
  return name;
}

} // namespace turfdesk
