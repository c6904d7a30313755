// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace turfdesk {

/// What a value holds.
struct RegistryData {
  /// RegSz, RegDword or the platform's number of another type.
  std::uint32_t type = RegSz;
  /// What a RegDword holds.
  std::int32_t number = 0;
  /// What a RegSz holds, in UTF-8; of a type beyond these two, its bytes as the platform keeps them.
  std::string text;
};

struct RegistryValue {
  /// In the case that it was created with; "" for the default value.
  std::string name;
  RegistryData data;
};

/// A key and all that lies below it. Key paths here are as RegistryService describes them.
struct RegistryBranch {
  RegistryRoot root = RegistryRoot::LocalMachine;
  std::string keyPath;
};

struct RegistryKeyContent {
  RegistryRoot root = RegistryRoot::LocalMachine;
  /// The branch's own path as it was asked for, and below it each name in the case that it was created with.
  std::string keyPath;
  /// In the order of their names.
  std::vector<RegistryValue> values;
};

struct RegistryChange {
  enum class Kind {
    /// Makes the key, parents included; nothing when it is there.
    CreateKey,
    /// Makes the key, parents included, and writes the value, whatever it held before.
    SetValue,
    /// Nothing when there is no such key or value.
    DeleteValue,
    /// Deletes the key with everything below it; nothing when there is no such key. A root cannot be deleted.
    DeleteKey,
  };

  Kind kind = Kind::CreateKey;
  RegistryRoot root = RegistryRoot::LocalMachine;
  std::string keyPath;
  std::string valueName;
  /// RegSz or RegDword.
  RegistryData data;
};

/// The settings tree taken by whole branches, for those who carry settings from one system to another.
///
/// Failures are thrown as RuntimeError with words fit to show.
class RegistryBranches {
public:
  RegistryBranches() = default;
  RegistryBranches(const RegistryBranches &) = delete;
  RegistryBranches &operator=(const RegistryBranches &) = delete;
  virtual ~RegistryBranches() = default;

  /// All keys of the branches, each before its subkeys and these in the order of their names. A branch whose key does
  /// not exist gives none. Where the platform can do that, everything is as it was at one moment.
  virtual std::vector<RegistryKeyContent> Read(std::span<const RegistryBranch> branches) = 0;

  /// Makes the changes, in their order, as one transaction: all of them, durable when the call returns, or, when it
  /// throws or the program dies on the way, none. Other programs see none or all. A platform whose registry has no
  /// transactions undoes what it has done as far as it can.
  virtual void Apply(std::span<const RegistryChange> changes) = 0;
};

} // namespace turfdesk
