// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryService.h"
#include "platform/RuntimeError.h"
#include "platform/windows/RegistryKey.h"
#include "platform/windows/RegistryWatch.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The settings tree in the registry. LastError is 0 or the number of a RuntimeError; the words are the system's.
///
/// A key is opened for reading alone, so that a user who may not write can see what is installed; rights to write are
/// asked for by the first write. A key that another program deletes while it is open here answers like a key without
/// subkeys and values; writing to it fails. GetStringValue puts the environment into a text that is made for that.
class WindowsRegistryService final : public RegistryService {
public:
  /// Throws RuntimeError when the settings of this machine cannot be read at all.
  WindowsRegistryService();

  /// An unknown name selects a root under which there is nothing.
  void SetRootKey(std::string_view rootName) override;
  long LastError() const override { return mLastError; }
  std::string LastErrorText() const override { return mLastErrorText; }
  void CloseKey() override;
  bool DeleteKey(std::string_view keyPath) override;
  /// The registry cannot be locked. What is reserved is the right to the change, as far as it can be had beforehand,
  /// and the word of our own programs not to change anything under a reservation of another.
  std::unique_ptr<RegistryReservation> Reserve(KeyChange change, std::string_view keyPath) override;
  void WatchKey(std::string_view keyPath) override;
  bool WatchedKeyChanged() override;
  /// Takes the names that SubkeyName gives afterwards, so that their indexes hold while other programs write.
  std::int32_t SubkeyCount() override;
  bool KeyExists(std::string_view keyPath) override;
  bool OpenKey(std::string_view keyPath, bool create) override;
  std::int32_t GetLongValue(std::string_view valueName) override;
  std::string GetStringValue(std::string_view valueName) override;
  bool ValueExists(std::string_view valueName) override;
  void SetLongValue(std::string_view valueName, std::int32_t value) override;
  void SetStringValue(std::string_view valueName, std::string_view value) override;
  std::string SubkeyName(std::int32_t index) override;

private:
  void Begin();
  /// Would the registry refuse the change?
  bool IsPossible(KeyChange change, std::string_view keyPath);
  bool FindDeletable(std::string_view keyPath, std::wstring &path);
  void RequireOpenKey();
  void ReadSubkeyNames();
  /// Reads a value of the open key. False when there is none, which is no failure yet.
  bool Read(std::string_view valueName, RawValue &value);
  void Write(std::string_view valueName, std::uint32_t type, std::string bytes);
  bool Fail(std::uint32_t error, std::string_view keyPath);
  bool Fail(ErrorNumber number, std::string_view words);

  std::optional<RegistryRoot> mRoot = RegistryRoot::LocalMachine;
  RegistryKey mKey;
  /// The open key once more, for writing, from the first write on.
  RegistryKey mWritableKey;
  RegistryRoot mOpenRoot = RegistryRoot::LocalMachine;
  std::string mOpenPath;
  std::optional<std::vector<std::string>> mSubkeys;
  RegistryWatch mWatch;
  long mLastError = 0;
  std::string mLastErrorText;
};

} // namespace turfdesk
