// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/SystemInfo.h"

#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/basVorinFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace turfdesk {

namespace {

/// What a read has room for, in bytes.
constexpr std::size_t BufferSize = 1024;

std::string HexCode(unsigned char byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  const std::string low(1, digits[byte % 16]);
  return byte < 16 ? low : digits[byte / 16] + low;
}

bool ReadValue(RegistryFunctions &functions, RegistryHandle key, std::string_view subKeyRef, std::string &keyVal) {
  std::uint32_t type = 0;
  std::string data;
  if (functions.RegQueryValueExA(key, subKeyRef, type, data) != RegSuccess || data.size() > BufferSize)
    return false;
  // Of a number too, whose highest byte this is.
  if (data.ends_with('\0'))
    data.pop_back();
  if (type == RegSz)
    keyVal = data;
  if (type == RegDword) {
    std::for_each(data.rbegin(), data.rend(), [&keyVal](unsigned char byte) { keyVal += HexCode(byte); });
    // The general format of a text is the text itself, also where it spells a number.
    keyVal.insert(0, "&h");
  }
  return true;
}

/// "" when the tool is not there.
std::string FindTool(SharedState &state) {
  RegistryFunctions &functions = state.platform.DirectRegistry();
  constexpr RegistryRoot root = RegistryRoot::LocalMachine;
  std::string path;
  if (GetKeyValue(functions, root, R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", "PATH", path))
    return path;
  if (!GetKeyValue(functions, root, R"(SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO", path))
    return {};
  path += R"(\MSINFO32.EXE)";
  return FileExists(state, path) ? path : "";
}

bool StartTool(SharedState &state) {
  const std::string tool = FindTool(state);
  if (tool.empty())
    return false;
  state.platform.Programs().Shell(tool, {}, WindowStyle::NormalFocus);
  return true;
}

} // namespace

void StartSysInfo(SharedState &state) {
  bool started = false;
  PassOver([&] { started = StartTool(state); });
  if (!started)
    ShowPlainBox(state.boxes, "System Information Is Unavailable At This Time");
}

bool GetKeyValue(RegistryFunctions &functions, RegistryRoot keyRoot, std::string_view keyName,
                 std::string_view subKeyRef, std::string &keyVal) {
  RegistryHandle key = 0;
  const bool read =
      functions.RegOpenKeyExA(keyRoot, keyName, key) == RegSuccess && ReadValue(functions, key, subKeyRef, keyVal);
  if (!read)
    keyVal.clear();
  functions.RegCloseKey(key);
  return read;
}

} // namespace turfdesk
