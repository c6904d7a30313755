// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/windows/RawValue.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace turfdesk {

// Numbers of the system that are answers rather than failures, or that the program itself gives.
inline constexpr std::uint32_t RegistrySuccess = 0;
inline constexpr std::uint32_t RegistryNotFound = 2;
/// There is too little memory for an answer.
inline constexpr std::uint32_t RegistryNoMemory = 8;
inline constexpr std::uint32_t RegistryBadName = 87;
inline constexpr std::uint32_t RegistryBadPath = 161;
/// Another program has deleted the key while it was open here.
inline constexpr std::uint32_t RegistryKeyDeleted = 1018;

/// Is there no such key or value, or no longer?
constexpr bool IsGone(std::uint32_t error) { return error == RegistryNotFound || error == RegistryKeyDeleted; }

/// What a key is opened for. Rights that are not needed are not asked for, because a user may lack them.
enum class KeyAccess {
  /// Its values and subkeys.
  Read,
  /// The same, and to write its values.
  Write,
  /// All that the direct functions can do with a key.
  ReadWrite,
  /// To make subkeys.
  MakeSubkeys,
  /// To learn whether it may be deleted.
  Delete,
};

/// An open key, which is closed with the object. Paths are in the form of ToKeyPath. Each routine with a result gives
/// RegistrySuccess or the system's number of the failure.
class RegistryKey {
public:
  RegistryKey() = default;
  RegistryKey(const RegistryKey &) = delete;
  RegistryKey &operator=(const RegistryKey &) = delete;
  RegistryKey(RegistryKey &&other) noexcept : mRoot(other.mRoot), mKey(std::exchange(other.mKey, nullptr)) {}
  RegistryKey &operator=(RegistryKey &&other) noexcept;
  ~RegistryKey() { Close(); }

  std::uint32_t Open(RegistryRoot root, const std::wstring &path, KeyAccess access);
  /// Opens the key, making it with its parents when it is absent.
  std::uint32_t Create(RegistryRoot root, const std::wstring &path, KeyAccess access);
  /// Opens a key that is open already once more, for something else.
  std::uint32_t Reopen(const RegistryKey &other, KeyAccess access) { return OpenSubkey(other, {}, access); }
  std::uint32_t OpenSubkey(const RegistryKey &parent, const std::wstring &name, KeyAccess access);
  void Close();
  bool IsOpen() const { return mKey != nullptr; }

  std::uint32_t Read(const std::wstring &valueName, RawValue &value) const;
  /// All values, in the order of their names.
  std::uint32_t ReadAll(std::vector<RawValue> &values) const;
  std::uint32_t Write(const RawValue &value) const;
  std::uint32_t DeleteValue(const std::wstring &valueName) const;
  /// Returns when what was written to this part of the registry is on the disk.
  std::uint32_t Flush() const;
  /// In the order of their names.
  std::uint32_t SubkeyNames(std::vector<std::wstring> &names) const;
  std::uint32_t SubkeyCount(std::uint32_t &count) const;
  /// Sets an event of the system, once, when somebody changes the key or anything below it while it is open here.
  std::uint32_t TellOfChanges(void *event) const;

  /// Deletes a key and its values. The system refuses it for a key that has subkeys.
  static std::uint32_t Delete(RegistryRoot root, const std::wstring &path);

private:
  RegistryRoot mRoot = RegistryRoot::LocalMachine;
  void *mKey = nullptr;
};

} // namespace turfdesk
