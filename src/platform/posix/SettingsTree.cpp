// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SettingsTree.h"

#include "platform/posix/FoldedText.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace turfdesk {

namespace {

std::vector<SettingsKey *>::iterator PlaceOfSubkey(SettingsKey &parent, std::string_view foldedName) {
  // The loader adds them in order.
  if (parent.subkeys.empty() || parent.subkeys.back()->foldedName < foldedName)
    return parent.subkeys.end();
  return std::lower_bound(parent.subkeys.begin(), parent.subkeys.end(), foldedName,
                          [](const SettingsKey *subkey, std::string_view name) { return subkey->foldedName < name; });
}

} // namespace

std::string_view WithoutTrailingBackslash(std::string_view keyPath) {
  return keyPath.ends_with('\\') ? keyPath.substr(0, keyPath.size() - 1) : keyPath;
}

std::string_view TakePart(std::string_view &keyPath) {
  const std::size_t length = std::min(keyPath.find('\\'), keyPath.size());
  const std::string_view part = keyPath.substr(0, length);
  keyPath.remove_prefix(std::min(length + 1, keyPath.size()));
  return part;
}

std::optional<SettingsValue> SettingsKey::FindValue(std::string_view valueName) const {
  const FoldedText folded(valueName);
  return values.Find(folded.View());
}

bool HaveSameContent(const SettingsKey &left, const SettingsKey &right) {
  return left.values == right.values &&
         std::ranges::equal(left.subkeys, right.subkeys, [](const SettingsKey *one, const SettingsKey *other) {
           return one->foldedName == other->foldedName && HaveSameContent(*one, *other);
         });
}

std::size_t SettingsTree::NameHash::operator()(const Name &name) const {
  constexpr std::size_t spread = 0x9e3779b97f4a7c15U;
  return std::hash<std::string_view>()(name.foldedName) ^ (static_cast<std::size_t>(name.parent->id) * spread);
}

bool SettingsTree::NameEqual::operator()(const Name &name, const SettingsKey *key) const {
  return key->parent == name.parent && key->foldedName == name.foldedName;
}

SettingsTree::SettingsTree() {
  mKeys[LocalMachineId].id = LocalMachineId;
  mKeys[ClassesRootId].id = ClassesRootId;
  mNextId = ClassesRootId + 1;
}

SettingsKey &SettingsTree::Root(RegistryRoot root) {
  return mKeys.at(root == RegistryRoot::LocalMachine ? LocalMachineId : ClassesRootId);
}

SettingsKey *SettingsTree::Find(RegistryRoot root, std::string_view keyPath) {
  keyPath = WithoutTrailingBackslash(keyPath);
  SettingsKey *key = &Root(root);
  while (key && !keyPath.empty())
    key = FindSubkey(*key, TakePart(keyPath));
  return key;
}

SettingsKey *SettingsTree::FindSubkey(const SettingsKey &parent, std::string_view name) const {
  const FoldedText folded(name);
  const auto found = mByName.find(Name{&parent, folded.View()});
  return found != mByName.end() ? *found : nullptr;
}

SettingsKey *SettingsTree::FindSibling(const SettingsKey &key, std::string_view name) const {
  return key.next && key.next->name == name ? key.next : FindSubkey(*key.parent, name);
}

SettingsKey *SettingsTree::FindId(std::int64_t id) {
  const auto found = mKeys.find(id);
  return found != mKeys.end() ? &found->second : nullptr;
}

SettingsKey *SettingsTree::Insert(SettingsKey &parent, std::int64_t id, std::string_view name,
                                  std::string_view foldedName) {
  const auto place = PlaceOfSubkey(parent, foldedName);
  if (place != parent.subkeys.end() && (*place)->foldedName == foldedName)
    return nullptr;
  const auto [entry, isNew] = mKeys.try_emplace(id);
  if (!isNew)
    return nullptr;
  SettingsKey &key = entry->second;
  key.id = id;
  key.parent = &parent;
  key.name = name;
  key.foldedName = foldedName;
  key.next = place != parent.subkeys.end() ? *place : nullptr;
  if (place != parent.subkeys.begin())
    (*std::prev(place))->next = &key;
  parent.subkeys.insert(place, &key);
  mByName.insert(&key);
  mNextId = std::max(mNextId, id + 1);
  return &key;
}

void SettingsTree::Erase(SettingsKey &key) {
  const auto place = PlaceOfSubkey(*key.parent, key.foldedName);
  if (place != key.parent->subkeys.begin())
    (*std::prev(place))->next = key.next;
  key.parent->subkeys.erase(place);
  mByName.erase(&key);
  mKeys.erase(key.id);
}

} // namespace turfdesk
