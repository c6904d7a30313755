// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryBranches.h"

namespace turfdesk {

/// Whole branches of the registry. What is read is not of one moment. Changes are not a transaction: other programs
/// see them one by one, and a program that dies on the way leaves those that it has made; a change that fails has the
/// ones before it undone, and the words say so when that did not succeed.
class WindowsRegistryBranches final : public RegistryBranches {
public:
  std::vector<RegistryKeyContent> Read(std::span<const RegistryBranch> branches) override;
  void Apply(std::span<const RegistryChange> changes) override;
};

} // namespace turfdesk
