// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"

#include <gtest/gtest.h>

#include <string>

namespace turfdesk::test {

inline constexpr const wchar_t *WideKey = LR"(Software\Turf Desk Tests)";
inline std::wstring WideBelow(const std::wstring &rest) { return std::wstring(WideKey) + L'\\' + rest; }

/// A key of the registry that other programs may use as its rights say, for as long as the object lives.
class RestrictedKey {
public:
  enum class Rights { None, Read };

  enum class View { Programs32, Programs64 };

  /// The key exists. One of HKEY_LOCAL_MACHINE is taken as programs of this kind see it.
  RestrictedKey(RegistryRoot root, const std::wstring &path, Rights rights, View view = View::Programs32);
  RestrictedKey(const RestrictedKey &) = delete;
  RestrictedKey &operator=(const RestrictedKey &) = delete;
  ~RestrictedKey();

private:
  void *mKey = nullptr;
  std::string mBefore;
};

/// While the object lives, nothing that is meant to last can be made below HKEY_CLASSES_ROOT, and nothing is there.
class UnwritableClasses {
public:
  UnwritableClasses();
  UnwritableClasses(const UnwritableClasses &) = delete;
  UnwritableClasses &operator=(const UnwritableClasses &) = delete;
  ~UnwritableClasses();
};

/// Makes a key of HKEY_LOCAL_MACHINE that goes with the system's next start, so that the system lets no key that is
/// meant to last be made below it.
void MakeVolatileKey(const std::wstring &path);

/// Does a program with the system's own view find this key of HKEY_LOCAL_MACHINE?
bool ExistsFor64BitPrograms(const std::wstring &path);

/// Writes a value of HKEY_LOCAL_MACHINE as another 32-bit program might, making its key.
void WriteRaw(const std::wstring &path, const std::wstring &name, std::uint32_t type, const std::string &bytes);

/// The bytes of a text, without a NUL behind it.
std::string Utf16(const std::wstring &text);

} // namespace turfdesk::test
