// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Progress.h"

namespace turfdesk {

/// Lets the parts of a job move one bar, each over its share: what is told of a part's own bytes moves the bar within
/// that share. It never goes back, and a part that comes to nothing leaves it where it stands until the next begins.
class JobProgress final : public Progress {
public:
  /// The whole job's bytes; outer, which must outlive the object, is what shows them.
  JobProgress(Progress &outer, double totalBytes) : mOuter(outer), mTotal(totalBytes) { mOuter.Begin(Scale); }

  /// The part before is done; from here on the next so many bytes of the job's are at work.
  void BeginPart(double bytes) {
    mStart += mLength;
    mLength = bytes;
    Show(mStart);
  }

  /// All that there was to do has been done.
  void Finish() { Show(mTotal); }

  void Begin(std::uint64_t totalBytes) override { mPartTotal = static_cast<double>(totalBytes); }
  void SetPosition(std::uint64_t doneBytes) override {
    if (mPartTotal > 0)
      Show(mStart + mLength * (static_cast<double>(doneBytes) / mPartTotal));
  }

private:
  /// Fine enough for every screen.
  static constexpr std::uint64_t Scale = 1'000'000;

  void Show(double bytes) {
    const double share = mTotal > 0 ? bytes / mTotal : 1;
    const auto position = share < 1 ? static_cast<std::uint64_t>(share * static_cast<double>(Scale)) : Scale;
    if (position <= mShown)
      return;
    mShown = position;
    mOuter.SetPosition(position);
  }

  Progress &mOuter;
  double mTotal;
  double mStart = 0;
  double mLength = 0;
  double mPartTotal = 0;
  std::uint64_t mShown = 0;
};

} // namespace turfdesk
