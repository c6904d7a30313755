// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryService.h"
#include "platform/RuntimeError.h"
#include "platform/posix/SettingsStore.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace turfdesk {

/// The settings tree over a SettingsStore. LastError is 0 or the number of a RuntimeError.
///
/// A key that another program deletes while it is open here answers like a key without subkeys and values; writing to
/// it fails.
class PosixRegistryService final : public RegistryService {
public:
  explicit PosixRegistryService(std::shared_ptr<SettingsStore> store) : mStore(std::move(store)) {}
  /// Over a store of its own.
  explicit PosixRegistryService(const std::string &home,
                                std::chrono::milliseconds patience = SettingsStore::DefaultPatience)
      : PosixRegistryService(std::make_shared<SettingsStore>(home, patience)) {}

  /// An unknown name selects a root under which there is nothing.
  void SetRootKey(std::string_view rootName) override;
  void HoldStill(bool still) override { mStore->HoldStill(still); }
  long LastError() const override { return mLastError; }
  std::string LastErrorText() const override { return mLastErrorText; }
  void CloseKey() override { mIsOpen = false; }
  bool DeleteKey(std::string_view keyPath) override;
  std::unique_ptr<RegistryReservation> Reserve(KeyChange change, std::string_view keyPath) override;
  void WatchKey(std::string_view keyPath) override;
  bool WatchedKeyChanged() override;
  std::int32_t SubkeyCount() override;
  bool KeyExists(std::string_view keyPath) override;
  /// A key that the store refuses to create, because it is read-only for example, gives false.
  bool OpenKey(std::string_view keyPath, bool create) override;
  std::int32_t GetLongValue(std::string_view valueName) override;
  std::string GetStringValue(std::string_view valueName) override;
  bool ValueExists(std::string_view valueName) override;
  void SetLongValue(std::string_view valueName, std::int32_t value) override;
  void SetStringValue(std::string_view valueName, std::string_view value) override;
  std::string SubkeyName(std::int32_t index) override;

private:
  void Begin();
  /// Would the store refuse the change? It is reserved.
  bool IsPossible(KeyChange change, std::string_view keyPath);
  const SettingsKey *OpenedKey();
  std::optional<SettingsValue> OpenedValue(std::string_view valueName);
  void SetValue(std::string_view valueName, const SettingsValue &value);
  /// Makes a refusal of the store a false result.
  /// A write that fails is an answer, with its words.
  template <typename Request> bool Write(const Request &request);
  template <typename Deletion> bool Delete(const Deletion &deletion);
  bool Fail(ErrorNumber number, std::string_view words);

  std::shared_ptr<SettingsStore> mStore;
  std::optional<RegistryRoot> mRoot = RegistryRoot::LocalMachine;
  bool mIsOpen = false;
  RegistryRoot mOpenRoot = RegistryRoot::LocalMachine;
  std::string mOpenPath;
  long mLastError = 0;
  std::string mLastErrorText;
};

} // namespace turfdesk
