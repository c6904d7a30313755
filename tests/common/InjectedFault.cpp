// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/InjectedFault.h"

#include <algorithm>

namespace turfdesk {

namespace {

std::vector<InjectedFault *> activeFaults;

} // namespace

InjectedFault::InjectedFault(Fault fault) : mFault(std::move(fault)) { activeFaults.push_back(this); }

InjectedFault::~InjectedFault() { std::erase(activeFaults, this); }

bool InjectedFault::IsStruck(const std::string &call) {
  return std::ranges::any_of(activeFaults, [&call](InjectedFault *fault) { return fault->Strikes(call); });
}

bool InjectedFault::Strikes(const std::string &call) {
  if (std::ranges::find(mFault.calls, call) == mFault.calls.end())
    return false;
  ++mCalls;
  if (mCalls < mFault.first || mCalls > mFault.last)
    return false;
  ++mCount;
  TakeEffect(mFault.error);
  return true;
}

} // namespace turfdesk
