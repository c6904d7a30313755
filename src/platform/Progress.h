// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>

namespace turfdesk {

/// How far the work at hand has come, in bytes.
class Progress {
public:
  Progress() = default;
  Progress(const Progress &) = delete;
  Progress &operator=(const Progress &) = delete;
  virtual ~Progress() = default;

  /// A new piece of work begins: position 0 of total bytes. With a total of 0 there is nothing to do.
  virtual void Begin(std::uint64_t totalBytes) = 0;
  /// Bytes done since Begin; never above the total.
  virtual void SetPosition(std::uint64_t doneBytes) = 0;
};

/// Progress that nobody looks at.
class NoProgress final : public Progress {
public:
  void Begin(std::uint64_t) override {}
  void SetPosition(std::uint64_t) override {}
};

} // namespace turfdesk
