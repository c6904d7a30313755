// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/windows/RegistryKey.h"

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace turfdesk {

/// Changes of the registry that can be taken back. The registry's own transactions are not to be had on every system
/// that the program runs on, so what each change replaces is kept in memory.
///
/// Paths are in the form of ToKeyPath. A change that fails throws RuntimeError with words fit to show and may have been
/// made in part, which Undo takes back as well.
class RegistryEdit {
public:
  /// Makes the key, parents included; nothing when it is there.
  void CreateKey(RegistryRoot root, const std::wstring &path);
  /// Makes the key, too. value keeps the case of its name where there is one already.
  void SetValue(RegistryRoot root, const std::wstring &path, const RawValue &value);
  /// Nothing when there is no such key or value.
  void DeleteValue(RegistryRoot root, const std::wstring &path, const std::wstring &valueName);
  /// Deletes the key with everything below it; nothing when there is no such key. path is not empty.
  void DeleteKey(RegistryRoot root, const std::wstring &path);
  /// Returns when everything is on the disk.
  void Flush();
  /// Puts everything back, the last change first. False when some of it could not be; the rest has been. What other
  /// programs have added meanwhile is left alone.
  bool Undo();

private:
  const RegistryKey &MakeWritable(RegistryRoot root, const std::wstring &path);
  /// Notes that something below this path is going to change.
  void Touch(RegistryRoot root, const std::wstring &path);
  void PutBackLater(RegistryRoot root, const std::wstring &path, std::vector<RawValue> values);

  /// The key that a value was written to last, because most come several to a key.
  RegistryKey mWritable;
  RegistryRoot mWritableRoot = RegistryRoot::LocalMachine;
  std::wstring mWritablePath;
  std::vector<std::function<std::uint32_t()>> mUndo;
  /// The beginnings of all changed paths: each lies in one file of the registry, which is flushed as a whole.
  std::set<std::pair<RegistryRoot, std::wstring>> mTouched;
};

} // namespace turfdesk
