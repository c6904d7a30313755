// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace turfdesk {

/// Roots that the direct functions work under.
enum class RegistryRoot { ClassesRoot, LocalMachine };

/// Types of a value, with the platform's numbers.
inline constexpr std::uint32_t RegSz = 1;
inline constexpr std::uint32_t RegDword = 4;

/// Result codes: 0 is success, anything else the platform's own number of the failure.
inline constexpr std::int32_t RegSuccess = 0;
inline constexpr std::int32_t RegFileNotFound = 2;
inline constexpr std::int32_t RegAccessDenied = 5;
inline constexpr std::int32_t RegInvalidHandle = 6;

/// A key opened by the direct functions. 0 is no key.
using RegistryHandle = std::uint64_t;

/// The settings tree's functions without RegistryService, for the two places that cannot use it: the repair path,
/// which runs because the service could not be created, and the file types, which lie under another root.
/// No function throws: each gives a result code.
class RegistryFunctions {
public:
  RegistryFunctions() = default;
  RegistryFunctions(const RegistryFunctions &) = delete;
  RegistryFunctions &operator=(const RegistryFunctions &) = delete;
  virtual ~RegistryFunctions() = default;

  /// Opens the key for reading and writing, creating it (with its parents) when absent.
  virtual std::int32_t RegCreateKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) = 0;
  /// Opens an existing key for reading and writing. key is 0 on failure.
  virtual std::int32_t RegOpenKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) = 0;
  /// Reads type and data of a value. Text data is UTF-8 with its terminating NUL; a number is 4 little-endian bytes.
  virtual std::int32_t RegQueryValueExA(RegistryHandle key, std::string_view valueName, std::uint32_t &type,
                                        std::string &data) = 0;
  /// Writes a value; data has the form of RegQueryValueExA.
  virtual std::int32_t RegSetValueExA(RegistryHandle key, std::string_view valueName, std::uint32_t type,
                                      std::string_view data) = 0;
  virtual std::int32_t RegCloseKey(RegistryHandle key) = 0;
};

} // namespace turfdesk
