// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/windows/RegistryKey.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace turfdesk {

/// Tells whether another process has changed a branch of the registry. The system says only that somebody has changed
/// something, ourselves included, so the content that the branch ought to have is kept, too.
///
/// Paths are in the form of ToKeyPath. What cannot be read throws RuntimeError.
class RegistryWatch {
public:
  RegistryWatch() = default;
  RegistryWatch(const RegistryWatch &) = delete;
  RegistryWatch &operator=(const RegistryWatch &) = delete;
  ~RegistryWatch();

  /// From now on this key, which need not exist, and all below it.
  void Begin(RegistryRoot root, const std::wstring &path);
  bool HasForeignChange();

  // Around each change of our own: before it, what is there is looked at, since it may hide another process's.
  void BeforeOwnChange(RegistryRoot root, const std::wstring &path);
  void NoteKey(RegistryRoot root, const std::wstring &path);
  void NoteValue(RegistryRoot root, const std::wstring &path, const RawValue &value);
  void NoteDeletion(RegistryRoot root, const std::wstring &path);

private:
  /// By names without regard to case.
  using Values = std::map<std::string, std::pair<std::uint32_t, std::string>>;
  using Branch = std::map<std::string, Values>;

  /// The form in which a key of the branch stands in it; nothing for a key elsewhere.
  std::optional<std::string> PlaceOf(RegistryRoot root, const std::wstring &path) const;
  void Arm();
  void Read(const std::wstring &path, Branch &branch) const;
  bool ReadValues(const RegistryKey &key, const std::wstring &path, Values &values) const;

  RegistryRoot mRoot = RegistryRoot::LocalMachine;
  std::wstring mPath;
  bool mHasBegun = false;
  bool mChanged = false;
  Branch mBranch;
  RegistryKey mKey;
  /// An event of the system; null while there is no key to wait at.
  void *mEvent = nullptr;
};

} // namespace turfdesk
