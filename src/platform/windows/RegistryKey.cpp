// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/RegistryKey.h"

#include "platform/CaseFold.h"
#include "platform/windows/WideText.h"

#include <algorithm>
#include <array>
#include <windows.h>

namespace turfdesk {

namespace {

static_assert(RegistrySuccess == ERROR_SUCCESS && RegistryNotFound == ERROR_FILE_NOT_FOUND &&
              RegistryBadName == ERROR_INVALID_PARAMETER && RegistryBadPath == ERROR_BAD_PATHNAME &&
              RegistryKeyDeleted == ERROR_KEY_DELETED && RegSz == REG_SZ && RegDword == REG_DWORD);

// The limits of the registry, each with room for a NUL.
constexpr std::size_t keyNameSize = 256;
constexpr std::size_t valueNameSize = 16384;

HKEY HandleOf(RegistryRoot root) { return root == RegistryRoot::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CLASSES_ROOT; }

/// The game is a 32-bit program: its settings lie in the view of HKEY_LOCAL_MACHINE\Software that such programs see,
/// and a 64-bit program sees another one unless it asks. File types are for the Explorer, which has the system's own
/// view.
REGSAM ViewOf(RegistryRoot root) { return root == RegistryRoot::LocalMachine ? KEY_WOW64_32KEY : 0; }

REGSAM MaskOf(RegistryRoot root, KeyAccess access) {
  switch (access) {
  case KeyAccess::Read:
    return KEY_READ | ViewOf(root);
  case KeyAccess::Write:
    return KEY_READ | KEY_SET_VALUE | ViewOf(root);
  case KeyAccess::ReadWrite:
    return KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY | KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY |
           KEY_CREATE_LINK | ViewOf(root);
  case KeyAccess::MakeSubkeys:
    return KEY_READ | KEY_CREATE_SUB_KEY | ViewOf(root);
  case KeyAccess::Delete:
    return KEY_QUERY_VALUE | DELETE | ViewOf(root);
  }
  return 0;
}

std::uint32_t CodeOf(LSTATUS status) { return static_cast<std::uint32_t>(status); }

/// The system would take the name as far as its first NUL, which is another value's.
bool IsValueName(const std::wstring &name) { return name.find(L'\0') == std::wstring::npos; }

/// Calls request with room for data, and again with more as long as that is too little. Another program may put in a
/// longer value in between.
template <typename Request> LSTATUS ReadBytes(std::string &bytes, const Request &request) {
  constexpr std::size_t usualSize = 520;
  bytes.resize(std::max(bytes.capacity(), usualSize));
  for (;;) {
    auto size = static_cast<DWORD>(bytes.size());
    const LSTATUS status = request(reinterpret_cast<BYTE *>(bytes.data()), size);
    if (status == ERROR_MORE_DATA) {
      bytes.resize(std::max<std::size_t>(size, bytes.size() * 2));
      continue;
    }
    bytes.resize(status == ERROR_SUCCESS ? size : 0);
    return status;
  }
}

} // namespace

RegistryKey &RegistryKey::operator=(RegistryKey &&other) noexcept {
  std::swap(mRoot, other.mRoot);
  std::swap(mKey, other.mKey);
  return *this;
}

std::uint32_t RegistryKey::Open(RegistryRoot root, const std::wstring &path, KeyAccess access) {
  Close();
  HKEY key = nullptr;
  const LSTATUS status = RegOpenKeyExW(HandleOf(root), path.c_str(), 0, MaskOf(root, access), &key);
  mRoot = root;
  mKey = status == ERROR_SUCCESS ? key : nullptr;
  return CodeOf(status);
}

std::uint32_t RegistryKey::Create(RegistryRoot root, const std::wstring &path, KeyAccess access) {
  Close();
  HKEY key = nullptr;
  const LSTATUS status = RegCreateKeyExW(HandleOf(root), path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                         MaskOf(root, access), nullptr, &key, nullptr);
  mRoot = root;
  mKey = status == ERROR_SUCCESS ? key : nullptr;
  return CodeOf(status);
}

std::uint32_t RegistryKey::OpenSubkey(const RegistryKey &parent, const std::wstring &name, KeyAccess access) {
  Close();
  HKEY key = nullptr;
  const LSTATUS status =
      RegOpenKeyExW(static_cast<HKEY>(parent.mKey), name.c_str(), 0, MaskOf(parent.mRoot, access), &key);
  mRoot = parent.mRoot;
  mKey = status == ERROR_SUCCESS ? key : nullptr;
  return CodeOf(status);
}

void RegistryKey::Close() {
  if (mKey)
    RegCloseKey(static_cast<HKEY>(std::exchange(mKey, nullptr)));
}

std::uint32_t RegistryKey::Read(const std::wstring &valueName, RawValue &value) const {
  if (!IsValueName(valueName))
    return RegistryNotFound;
  value.name = valueName;
  DWORD type = 0;
  const LSTATUS status = ReadBytes(value.bytes, [&](BYTE *bytes, DWORD &size) {
    return RegQueryValueExW(static_cast<HKEY>(mKey), valueName.c_str(), nullptr, &type, bytes, &size);
  });
  value.type = type;
  return CodeOf(status);
}

std::uint32_t RegistryKey::ReadAll(std::vector<RawValue> &values) const {
  values.clear();
  std::wstring name(valueNameSize, L'\0');
  for (DWORD index = 0;; ++index) {
    RawValue value;
    DWORD type = 0;
    DWORD nameLength = 0;
    const LSTATUS status = ReadBytes(value.bytes, [&](BYTE *bytes, DWORD &size) {
      nameLength = valueNameSize;
      return RegEnumValueW(static_cast<HKEY>(mKey), index, name.data(), &nameLength, nullptr, &type, bytes, &size);
    });
    if (status == ERROR_NO_MORE_ITEMS)
      break;
    if (status != ERROR_SUCCESS)
      return CodeOf(status);
    value.name = name.substr(0, nameLength);
    value.type = type;
    value.bytes.shrink_to_fit();
    values.push_back(std::move(value));
  }
  SortIgnoringCase(values, [](const RawValue &value) { return ToUtf8(value.name); });
  return RegistrySuccess;
}

std::uint32_t RegistryKey::Write(const RawValue &value) const {
  if (!IsValueName(value.name))
    return RegistryBadName;
  return CodeOf(RegSetValueExW(static_cast<HKEY>(mKey), value.name.c_str(), 0, value.type,
                               reinterpret_cast<const BYTE *>(value.bytes.data()),
                               static_cast<DWORD>(value.bytes.size())));
}

std::uint32_t RegistryKey::DeleteValue(const std::wstring &valueName) const {
  return IsValueName(valueName) ? CodeOf(RegDeleteValueW(static_cast<HKEY>(mKey), valueName.c_str()))
                                : RegistryNotFound;
}

std::uint32_t RegistryKey::Flush() const { return CodeOf(RegFlushKey(static_cast<HKEY>(mKey))); }

std::uint32_t RegistryKey::SubkeyNames(std::vector<std::wstring> &names) const {
  names.clear();
  std::array<wchar_t, keyNameSize> name{};
  for (DWORD index = 0;; ++index) {
    DWORD length = keyNameSize;
    const LSTATUS status =
        RegEnumKeyExW(static_cast<HKEY>(mKey), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_NO_MORE_ITEMS)
      break;
    if (status != ERROR_SUCCESS)
      return CodeOf(status);
    names.emplace_back(name.data(), length);
  }
  SortIgnoringCase(names, ToUtf8);
  return RegistrySuccess;
}

std::uint32_t RegistryKey::SubkeyCount(std::uint32_t &count) const {
  DWORD found = 0;
  const LSTATUS status = RegQueryInfoKeyW(static_cast<HKEY>(mKey), nullptr, nullptr, nullptr, &found, nullptr, nullptr,
                                          nullptr, nullptr, nullptr, nullptr, nullptr);
  count = found;
  return CodeOf(status);
}

std::uint32_t RegistryKey::TellOfChanges(void *event) const {
  return CodeOf(RegNotifyChangeKeyValue(static_cast<HKEY>(mKey), TRUE,
                                        REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET, event, TRUE));
}

std::uint32_t RegistryKey::Delete(RegistryRoot root, const std::wstring &path) {
  return CodeOf(RegDeleteKeyExW(HandleOf(root), path.c_str(), ViewOf(root), 0));
}

} // namespace turfdesk
