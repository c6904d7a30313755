// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryBranches.h"
#include "platform/posix/SettingsAccess.h"

namespace turfdesk {

/// Whole branches over a SettingsStore. The store is held for the time of a call only.
class PosixRegistryBranches final : public RegistryBranches {
public:
  /// access must outlive the object.
  explicit PosixRegistryBranches(SettingsAccess &access) : mAccess(access) {}

  std::vector<RegistryKeyContent> Read(std::span<const RegistryBranch> branches) override {
    return mAccess.Open()->ReadBranches(branches);
  }
  void Apply(std::span<const RegistryChange> changes) override { mAccess.Open()->ApplyAll(changes); }

private:
  SettingsAccess &mAccess;
};

} // namespace turfdesk
