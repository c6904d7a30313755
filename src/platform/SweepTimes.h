// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <chrono>
#include <map>

namespace turfdesk {

/// When folders (by path) were last looked through for what killed programs have left. To do so for each of thousands
/// of files that go into one folder would take a time that grows with the square of their number.
template <class Path> class SweepTimes {
public:
  /// Is it time to look through the folder? The answer counts as done. Nothing younger than a minute is taken for left
  /// behind, so that looking more often would find next to nothing.
  bool IsDue(const Path &folder) {
    const auto now = std::chrono::steady_clock::now();
    const auto [last, isNew] = mTimes.try_emplace(folder, now);
    if (!isNew && now - last->second < std::chrono::minutes(1))
      return false;
    last->second = now;
    return true;
  }

private:
  std::map<Path, std::chrono::steady_clock::time_point> mTimes;
};

} // namespace turfdesk
