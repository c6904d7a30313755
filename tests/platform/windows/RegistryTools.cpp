// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "RegistryTools.h"

#include <windows.h>

#include <sddl.h>

#include <stdexcept>

namespace turfdesk::test {

namespace {

HKEY HandleOf(RegistryRoot root) { return root == RegistryRoot::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CLASSES_ROOT; }
REGSAM ViewOf(RegistryRoot root) { return root == RegistryRoot::LocalMachine ? KEY_WOW64_32KEY : 0; }

void Require(LSTATUS status, const char *what) {
  if (status != ERROR_SUCCESS)
    throw std::runtime_error(what + (": " + std::to_string(status)));
}

HKEY CreateVolatileKey(const wchar_t *path) {
  HKEY key = nullptr;
  Require(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path, 0, nullptr, REG_OPTION_VOLATILE, KEY_READ | KEY_WOW64_32KEY,
                          nullptr, &key, nullptr),
          "create a volatile key");
  return key;
}

} // namespace

RestrictedKey::RestrictedKey(RegistryRoot root, const std::wstring &path, Rights rights, View view) {
  HKEY key = nullptr;
  const REGSAM viewMask = view == View::Programs32 ? ViewOf(root) : KEY_WOW64_64KEY;
  Require(RegOpenKeyExW(HandleOf(root), path.c_str(), 0, READ_CONTROL | WRITE_DAC | viewMask, &key), "open");
  mKey = key;
  DWORD size = 0;
  RegGetKeySecurity(key, DACL_SECURITY_INFORMATION, nullptr, &size);
  mBefore.resize(size);
  Require(RegGetKeySecurity(key, DACL_SECURITY_INFORMATION, mBefore.data(), &size), "get security");
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  const wchar_t *text = rights == Rights::Read ? L"D:(A;;KR;;;WD)" : L"D:";
  if (ConvertStringSecurityDescriptorToSecurityDescriptorW(text, SDDL_REVISION_1, &descriptor, nullptr) == FALSE)
    throw std::runtime_error("security descriptor");
  Require(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), "set security");
  LocalFree(descriptor);
}

RestrictedKey::~RestrictedKey() {
  EXPECT_EQ(RegSetKeySecurity(static_cast<HKEY>(mKey), DACL_SECURITY_INFORMATION, mBefore.data()), ERROR_SUCCESS);
  RegCloseKey(static_cast<HKEY>(mKey));
}

UnwritableClasses::UnwritableClasses() {
  const HKEY key = CreateVolatileKey(LR"(Software\Turf Desk Tests\Classes)");
  Require(RegOverridePredefKey(HKEY_CLASSES_ROOT, key), "override");
  RegCloseKey(key);
}

UnwritableClasses::~UnwritableClasses() { EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr), ERROR_SUCCESS); }

void MakeVolatileKey(const std::wstring &path) { RegCloseKey(CreateVolatileKey(path.c_str())); }

bool ExistsFor64BitPrograms(const std::wstring &path) {
  HKEY key = nullptr;
  const LSTATUS status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ | KEY_WOW64_64KEY, &key);
  RegCloseKey(key);
  return status == ERROR_SUCCESS;
}

void WriteRaw(const std::wstring &path, const std::wstring &name, std::uint32_t type, const std::string &bytes) {
  HKEY key = nullptr;
  Require(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE | KEY_WOW64_32KEY, nullptr,
                          &key, nullptr),
          "create");
  Require(RegSetValueExW(key, name.c_str(), 0, type, reinterpret_cast<const BYTE *>(bytes.data()),
                         static_cast<DWORD>(bytes.size())),
          "set");
  RegCloseKey(key);
}

std::string Utf16(const std::wstring &text) {
  return {reinterpret_cast<const char *>(text.data()), text.size() * sizeof(wchar_t)};
}

} // namespace turfdesk::test
