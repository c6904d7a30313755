// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"
#include "platform/posix/SettingsAccess.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace turfdesk {

// Result codes beyond those of RegistryFunctions.h, with the numbers that the classic registry gives them.
inline constexpr std::int32_t RegNotEnoughMemory = 8;
inline constexpr std::int32_t RegInvalidParameter = 87;
inline constexpr std::int32_t RegDiskFull = 112;
inline constexpr std::int32_t RegBadPathName = 161;
inline constexpr std::int32_t RegBusy = 170;
inline constexpr std::int32_t RegCorrupt = 1015;
inline constexpr std::int32_t RegIoFailed = 1016;
inline constexpr std::int32_t RegKeyDeleted = 1018;

/// The direct functions. They open the store at the first call that needs it, or share the one that is open.
class PosixRegistryFunctions final : public RegistryFunctions {
public:
  /// access must outlive the functions.
  explicit PosixRegistryFunctions(SettingsAccess &access) : mAccess(access) {}

  std::int32_t RegCreateKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) override;
  std::int32_t RegOpenKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) override;
  std::int32_t RegQueryValueExA(RegistryHandle key, std::string_view valueName, std::uint32_t &type,
                                std::string &data) override;
  std::int32_t RegSetValueExA(RegistryHandle key, std::string_view valueName, std::uint32_t type,
                              std::string_view data) override;
  std::int32_t RegCloseKey(RegistryHandle key) override;

private:
  struct OpenedKey {
    RegistryRoot root;
    std::string path;
  };

  SettingsStore &Store();
  RegistryHandle Opened(RegistryRoot root, std::string_view keyPath);

  SettingsAccess &mAccess;
  std::shared_ptr<SettingsStore> mStore;
  std::map<RegistryHandle, OpenedKey> mOpened;
  RegistryHandle mLastHandle = 0;
};

} // namespace turfdesk
