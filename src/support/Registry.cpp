// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/Registry.h"

#include "support/Prompts.h"

#include <charconv>

namespace turfdesk {

namespace {

std::string LittleEndian(std::string_view decimal) {
  std::int32_t number = 0;
  std::from_chars(decimal.data(), decimal.data() + decimal.size(), number);
  const auto bits = static_cast<std::uint32_t>(number);
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8)
    bytes += static_cast<char>((bits >> shift) & 0xFF);
  return bytes;
}

std::string DecimalOf(std::string_view littleEndian) {
  std::uint32_t bits = 0;
  for (std::size_t i = littleEndian.size(); i-- > 0;)
    bits = bits << 8 | static_cast<unsigned char>(littleEndian[i]);
  return std::to_string(static_cast<std::int32_t>(bits));
}

} // namespace

void CreateNewKey(SharedState &state, std::string_view keyName, RegistryRoot root) {
  RegistryFunctions &functions = state.platform.DirectRegistry();
  RegistryHandle key = 0;
  functions.RegCreateKeyExA(root, keyName, key);
  functions.RegCloseKey(key);
}

void SetKeyValue(SharedState &state, std::string_view keyName, std::string_view valueName, std::string_view value,
                 std::uint32_t valueType) {
  RegistryFunctions &functions = state.platform.DirectRegistry();
  RegistryHandle key = 0;
  if (const auto code = functions.RegOpenKeyExA(RegistryRoot::ClassesRoot, keyName, key); code != RegSuccess)
    ShowPlainBox(state.boxes, "RegOpenKey error - " + std::to_string(code));
  if (const auto code = SetValueEx(state, key, valueName, valueType, value); code != RegSuccess)
    ShowPlainBox(state.boxes, "SetValue error - " + std::to_string(code));
  functions.RegCloseKey(key);
}

std::int32_t SetValueEx(SharedState &state, RegistryHandle key, std::string_view valueName, std::uint32_t valueType,
                        std::string_view value) {
  RegistryFunctions &functions = state.platform.DirectRegistry();
  if (valueType == RegSz)
    return functions.RegSetValueExA(key, valueName, RegSz, std::string(value) + '\0');
  if (valueType == RegDword)
    return functions.RegSetValueExA(key, valueName, RegDword, LittleEndian(value));
  return RegSuccess;
}

void QueryValue(SharedState &state, std::string_view keyName, std::string_view valueName) {
  RegistryFunctions &functions = state.platform.DirectRegistry();
  RegistryHandle key = 0;
  functions.RegOpenKeyExA(RegistryRoot::LocalMachine, keyName, key);
  std::string value;
  QueryValueEx(state, key, valueName, value);
  // The box shows the text up to its NUL, which stays part of the result.
  ShowPlainBox(state.boxes, value.c_str());
  state.registryResult = value;
  functions.RegCloseKey(key);
}

std::int32_t QueryValueEx(SharedState &state, RegistryHandle key, std::string_view valueName, std::string &value) {
  std::uint32_t type = 0;
  std::string data;
  if (const auto code = state.platform.DirectRegistry().RegQueryValueExA(key, valueName, type, data);
      code != RegSuccess)
    return code;
  if (type != RegSz && type != RegDword)
    return -1;
  value = type == RegSz ? data : DecimalOf(data);
  return RegSuccess;
}

} // namespace turfdesk
