// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsRegistryFunctions.h"

#include "platform/windows/RegistryPath.h"
#include "platform/windows/WideText.h"

#include <new>

namespace turfdesk {

namespace {

/// Gives what a request gives, or the code of a lack of memory.
template <typename Request> std::int32_t ResultOf(const Request &request) {
  try {
    return static_cast<std::int32_t>(request());
  } catch (const std::bad_alloc &) {
    return static_cast<std::int32_t>(RegistryNoMemory);
  }
}

} // namespace

std::int32_t WindowsRegistryFunctions::RegCreateKeyExA(RegistryRoot root, std::string_view keyPath,
                                                       RegistryHandle &key) {
  return ResultOf([&] {
    RegistryKey opened;
    std::wstring path;
    const std::uint32_t error =
        ToKeyPath(keyPath, path) ? opened.Create(root, path, KeyAccess::ReadWrite) : RegistryBadPath;
    return Keep(error, std::move(opened), key);
  });
}

std::int32_t WindowsRegistryFunctions::RegOpenKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) {
  return ResultOf([&] {
    RegistryKey opened;
    std::wstring path;
    const std::uint32_t error =
        ToKeyPath(keyPath, path) ? opened.Open(root, path, KeyAccess::ReadWrite) : RegistryNotFound;
    return Keep(error, std::move(opened), key);
  });
}

std::int32_t WindowsRegistryFunctions::RegQueryValueExA(RegistryHandle key, std::string_view valueName,
                                                        std::uint32_t &type, std::string &data) {
  const auto opened = mOpened.find(key);
  if (opened == mOpened.end())
    return RegInvalidHandle;
  return ResultOf([&] {
    RawValue value;
    const std::uint32_t error = opened->second.Read(ToWide(valueName), value);
    if (error == RegistrySuccess) {
      type = value.type;
      data = type == RegSz ? TextOf(value) + '\0' : value.bytes;
    }
    return error;
  });
}

std::int32_t WindowsRegistryFunctions::RegSetValueExA(RegistryHandle key, std::string_view valueName,
                                                      std::uint32_t type, std::string_view data) {
  const auto opened = mOpened.find(key);
  if (opened == mOpened.end())
    return RegInvalidHandle;
  if (type != RegSz && (type != RegDword || data.size() != sizeof(std::int32_t)))
    return static_cast<std::int32_t>(RegistryBadName);
  return ResultOf([&] {
    const std::string_view text = data.substr(0, data.size() - (data.ends_with('\0') ? 1 : 0));
    return opened->second.Write({ToWide(valueName), type, type == RegSz ? BytesOfText(text) : std::string(data)});
  });
}

std::int32_t WindowsRegistryFunctions::RegCloseKey(RegistryHandle key) {
  return mOpened.erase(key) == 1 ? RegSuccess : RegInvalidHandle;
}

std::int32_t WindowsRegistryFunctions::Keep(std::uint32_t error, RegistryKey opened, RegistryHandle &key) {
  key = 0;
  if (error == RegistrySuccess) {
    mOpened.emplace(mLastHandle + 1, std::move(opened));
    key = ++mLastHandle;
  }
  return static_cast<std::int32_t>(error);
}

} // namespace turfdesk
