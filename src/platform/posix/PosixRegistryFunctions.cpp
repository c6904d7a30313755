// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PosixRegistryFunctions.h"

#include "platform/posix/PosixSettings.h"

#include <bit>
#include <cstring>
#include <exception>

namespace turfdesk {

namespace {

std::int32_t CodeOf(const RuntimeError &error) {
  switch (error.Number()) {
  case ErrorNumber::PathFileAccess:
    return RegAccessDenied;
  case ErrorNumber::PermissionDenied:
    return RegBusy;
  case ErrorNumber::DiskFull:
    return RegDiskFull;
  case ErrorNumber::BadFileName:
    return RegBadPathName;
  case ErrorNumber::OutOfMemory:
    return RegNotEnoughMemory;
  default:
    return RegIoFailed;
  }
}

/// Turns what a request throws into its result code.
template <typename Request> std::int32_t ResultOf(const Request &request) {
  try {
    return request();
  } catch (const DamagedSettings &) {
    return RegCorrupt;
  } catch (const RuntimeError &error) {
    return CodeOf(error);
  } catch (const std::exception &) {
    return RegNotEnoughMemory;
  }
}

static_assert(std::endian::native == std::endian::little, "numbers are handed over as they lie in memory");

/// False when the data is not what the type calls for.
bool ReadData(std::uint32_t type, std::string_view data, SettingsValue &value) {
  if (type == RegSz) {
    value.text = data.ends_with('\0') ? data.substr(0, data.size() - 1) : data;
    return true;
  }
  if (type != RegDword || data.size() != sizeof value.number)
    return false;
  value.type = SettingsType::Number;
  std::memcpy(&value.number, data.data(), sizeof value.number);
  return true;
}

std::string DataOf(const SettingsValue &value) {
  if (value.type == SettingsType::Text)
    return std::string(value.text) + '\0';
  return {reinterpret_cast<const char *>(&value.number), sizeof value.number};
}

} // namespace

std::int32_t PosixRegistryFunctions::RegCreateKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) {
  key = 0;
  return ResultOf([&] {
    Store().CreateKey(root, keyPath);
    key = Opened(root, keyPath);
    return RegSuccess;
  });
}

std::int32_t PosixRegistryFunctions::RegOpenKeyExA(RegistryRoot root, std::string_view keyPath, RegistryHandle &key) {
  key = 0;
  return ResultOf([&] {
    if (!Store().Find(root, keyPath))
      return RegFileNotFound;
    key = Opened(root, keyPath);
    return RegSuccess;
  });
}

std::int32_t PosixRegistryFunctions::RegQueryValueExA(RegistryHandle key, std::string_view valueName,
                                                      std::uint32_t &type, std::string &data) {
  const auto opened = mOpened.find(key);
  if (opened == mOpened.end())
    return RegInvalidHandle;
  return ResultOf([&] {
    const SettingsKey *found = Store().Find(opened->second.root, opened->second.path);
    if (!found)
      return RegKeyDeleted;
    const auto value = found->FindValue(valueName);
    if (!value)
      return RegFileNotFound;
    type = static_cast<std::uint32_t>(value->type);
    data = DataOf(*value);
    return RegSuccess;
  });
}

std::int32_t PosixRegistryFunctions::RegSetValueExA(RegistryHandle key, std::string_view valueName, std::uint32_t type,
                                                    std::string_view data) {
  const auto opened = mOpened.find(key);
  if (opened == mOpened.end())
    return RegInvalidHandle;
  SettingsValue value;
  if (!ReadData(type, data, value))
    return RegInvalidParameter;
  return ResultOf([&] {
    const bool isSet = Store().SetValue(opened->second.root, opened->second.path, valueName, value);
    return isSet ? RegSuccess : RegKeyDeleted;
  });
}

std::int32_t PosixRegistryFunctions::RegCloseKey(RegistryHandle key) {
  return mOpened.erase(key) == 1 ? RegSuccess : RegInvalidHandle;
}

SettingsStore &PosixRegistryFunctions::Store() {
  if (!mStore)
    mStore = mAccess.Open();
  return *mStore;
}

RegistryHandle PosixRegistryFunctions::Opened(RegistryRoot root, std::string_view keyPath) {
  ++mLastHandle;
  mOpened[mLastHandle] = {root, std::string(keyPath)};
  return mLastHandle;
}

} // namespace turfdesk
