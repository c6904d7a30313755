// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>

namespace turfdesk {

/// While it lives, a call of the system (such as "fsync") fails with an error number each time. "openat unnamed" stands
/// for the opening of a file without a name.
class InjectedFault {
public:
  InjectedFault(const std::string &call, int error);
  InjectedFault(const InjectedFault &) = delete;
  InjectedFault &operator=(const InjectedFault &) = delete;
  ~InjectedFault();

  /// Is this the call that is to fail? Then errno is set and the strike counted.
  bool Strikes(const std::string &call);
  int Count() const { return mCount; }

private:
  std::string mCall;
  int mError;
  int mCount = 0;
};

} // namespace turfdesk
