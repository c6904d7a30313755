// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"
#include "platform/posix/PackedValues.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace turfdesk {

struct SettingsKey {
  std::int64_t id = 0;
  SettingsKey *parent = nullptr;
  /// The sibling that follows in the order of names.
  SettingsKey *next = nullptr;
  std::string name;
  std::string foldedName;
  /// In the order of their folded names.
  std::vector<SettingsKey *> subkeys;
  PackedValues values;

  std::optional<SettingsValue> FindValue(std::string_view valueName) const;
};

/// Do two keys, of different trees perhaps, hold the same values and the same subkeys, down to the last?
bool HaveSameContent(const SettingsKey &left, const SettingsKey &right);

/// Ids of the two roots. They have no row in the store.
inline constexpr std::int64_t LocalMachineId = 1;
inline constexpr std::int64_t ClassesRootId = 2;

/// A key path may end with a backslash, which means nothing.
std::string_view WithoutTrailingBackslash(std::string_view keyPath);
/// Cuts the first part off a path and gives it.
std::string_view TakePart(std::string_view &keyPath);

/// The settings tree in memory. It knows nothing of the file: SettingsStore keeps the two alike.
class SettingsTree {
public:
  SettingsTree();
  SettingsTree(SettingsTree &&) = default;
  SettingsTree &operator=(SettingsTree &&) = default;

  SettingsKey &Root(RegistryRoot root);
  /// nullptr when there is no such key.
  SettingsKey *Find(RegistryRoot root, std::string_view keyPath);
  /// nullptr when there is none. Names are compared without regard to case.
  SettingsKey *FindSubkey(const SettingsKey &parent, std::string_view name) const;
  /// FindSubkey under the parent of a key that is no root. Quickest for the sibling that follows it, which is what
  /// somebody who goes through all subkeys asks for next.
  SettingsKey *FindSibling(const SettingsKey &key, std::string_view name) const;
  SettingsKey *FindId(std::int64_t id);
  /// An id greater than any in the tree.
  std::int64_t NextId() const { return mNextId; }

  /// Adds a key that is not there yet. nullptr when its id or its name under the parent is taken.
  SettingsKey *Insert(SettingsKey &parent, std::int64_t id, std::string_view name, std::string_view foldedName);
  /// Removes a key that has no subkeys and is no root.
  void Erase(SettingsKey &key);

private:
  struct Name {
    const SettingsKey *parent;
    std::string_view foldedName;
  };
  /// Not noexcept on purpose: the set then keeps each key's hash and need not touch the keys it passes.
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(const Name &name) const;
    std::size_t operator()(const SettingsKey *key) const { return (*this)(Name{key->parent, key->foldedName}); }
  };
  struct NameEqual {
    using is_transparent = void;
    bool operator()(const Name &name, const SettingsKey *key) const;
    bool operator()(const SettingsKey *key, const Name &name) const { return (*this)(name, key); }
    bool operator()(const SettingsKey *left, const SettingsKey *right) const { return left == right; }
  };

  std::unordered_map<std::int64_t, SettingsKey> mKeys;
  std::unordered_set<SettingsKey *, NameHash, NameEqual> mByName;
  std::int64_t mNextId = 0;
};

} // namespace turfdesk
