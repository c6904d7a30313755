// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <climits>
#include <string>
#include <vector>

namespace turfdesk {

/// A failure of the system, for test programs that have InjectedFault.cpp among their sources: it takes the place of
/// the system's own calls, those that libraries make included.
struct Fault {
  /// Named as in the C library, "pwrite" for "pwrite64" and the like; "openat unnamed" stands for the opening of a file
  /// without a name. On Windows, named as there, "CreateFile" for "CreateFileW" and the like.
  std::vector<std::string> calls;
  /// What errno, or GetLastError, says when a call fails; Kill ends the process instead.
  int error = 0;
  /// The calls that are struck, counted from 1 over all names.
  int first = 1;
  int last = INT_MAX;

  static constexpr int Kill = -1;
};

/// What a disk may refuse to do.
enum class DiskWork { Write, Flush, Rename, Delete, Open };

/// The fault of a disk that refuses each call of this system that does such work.
Fault Refusal(DiskWork work);

/// While it lives, a fault strikes.
class InjectedFault {
public:
  explicit InjectedFault(Fault fault);
  /// Every call of this name fails.
  InjectedFault(const std::string &call, int error) : InjectedFault(Fault{{call}, error}) {}
  InjectedFault(const InjectedFault &) = delete;
  InjectedFault &operator=(const InjectedFault &) = delete;
  ~InjectedFault();

  /// Counts a call for each fault that lives and knows its name. Is it to fail? Then the system's last error is set.
  static bool IsStruck(const std::string &call);
  /// Calls that have been struck.
  int Count() const { return mCount; }
  /// Calls that have been made, struck or not.
  int Calls() const { return mCalls; }

private:
  bool Strikes(const std::string &call);
  /// Sets the system's last error or ends the process.
  static void TakeEffect(int error);

  Fault mFault;
  int mCalls = 0;
  int mCount = 0;
};

} // namespace turfdesk
