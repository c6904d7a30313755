// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"
#include "platform/windows/RegistryKey.h"

#include <map>

namespace turfdesk {

/// The direct functions over the registry's own. A handle is a number of ours, so that a wrong one reaches nothing.
class WindowsRegistryFunctions final : public RegistryFunctions {
public:
  std::int32_t RegCreateKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) override;
  std::int32_t RegOpenKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) override;
  /// The data of a type beyond RegSz and RegDword is given as it is.
  std::int32_t RegQueryValueExA(RegistryHandle key, std::string_view valueName, std::uint32_t &type,
                                std::string &data) override;
  /// Writes RegSz and a RegDword of four bytes, nothing else.
  std::int32_t RegSetValueExA(RegistryHandle key, std::string_view valueName, std::uint32_t type,
                              std::string_view data) override;
  std::int32_t RegCloseKey(RegistryHandle key) override;

private:
  std::int32_t Keep(std::uint32_t error, RegistryKey opened, RegistryHandle &key);

  std::map<RegistryHandle, RegistryKey> mOpened;
  RegistryHandle mLastHandle = 0;
};

} // namespace turfdesk
