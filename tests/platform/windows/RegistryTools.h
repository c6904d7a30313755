// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace turfdesk::test {

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

/// Writes a value as another program might, making its key. Keys of HKEY_LOCAL_MACHINE are those of 32-bit programs.
void WriteRaw(RegistryRoot root, const std::wstring &path, const std::wstring &name, std::uint32_t type,
              const std::string &bytes);

/// The bytes of a text, without a NUL behind it.
std::string Utf16(const std::wstring &text);

/// A test with a key of its own, RegistryTest::Key, which is not there when the test begins. The settings of the game
/// and its file types are deleted, too.
class RegistryTest : public testing::Test {
protected:
  RegistryTest();
  ~RegistryTest() override;

  static constexpr const char *Key = R"(Software\Turf Desk Tests)";
  static std::wstring WideKey(const std::wstring &rest = {}) { return LR"(Software\Turf Desk Tests)" + rest; }
  static std::string Below(const std::string &rest) { return std::string(Key) + '\\' + rest; }
};

} // namespace turfdesk::test
