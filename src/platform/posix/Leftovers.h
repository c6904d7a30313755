// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>

namespace turfdesk {

/// A file or folder of the host that is removed, with all that it holds, when a signal ends the process; by whom it is
/// removed otherwise is not decided here. There is room for a few in a process: what finds none, or has a path that is
/// too long, is left to whoever sweeps the folder next. For one thread.
class Leftover {
public:
  Leftover() = default;
  Leftover(Leftover &&other) noexcept;
  Leftover(const Leftover &) = delete;
  Leftover &operator=(const Leftover &) = delete;
  ~Leftover() { Forget(); }

  void Note(const std::string &path);
  void Forget();

private:
  int mPlace = -1;
};

/// Removes all that is noted. May be called by a handler of signals, after which the process has to end.
void RemoveLeftovers();

} // namespace turfdesk
