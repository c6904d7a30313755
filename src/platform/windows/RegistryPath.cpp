// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/RegistryPath.h"

#include "platform/RegistryRoots.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/WideText.h"

#include <algorithm>

namespace turfdesk {

namespace {

// Limits of the registry. They are kept here because not every system refuses what goes beyond them.
constexpr std::size_t longestKeyName = 255;
constexpr std::ptrdiff_t greatestDepth = 512;

bool AreKeyNames(std::wstring_view path) {
  for (;;) {
    const std::size_t length = std::min(path.find(L'\\'), path.size());
    if (length == 0 || length > longestKeyName)
      return false;
    if (length == path.size())
      return true;
    path.remove_prefix(length + 1);
  }
}

} // namespace

bool ToKeyPath(std::string_view keyPath, std::wstring &path) {
  if (keyPath.ends_with('\\'))
    keyPath.remove_suffix(1);
  path = ToWide(keyPath);
  return path.empty() || (AreKeyNames(path) && path.find(L'\0') == std::wstring::npos &&
                          std::count(path.begin(), path.end(), L'\\') < greatestDepth);
}

std::wstring SubkeyPath(std::wstring path, const std::wstring &name) {
  if (!path.empty())
    path += L'\\';
  return path += name;
}

std::string RegistryWords(std::uint32_t error, RegistryRoot root, std::string_view keyPath) {
  return SystemWords(error) + "\r\n\r\n" + std::string(NameOfRoot(root)) + '\\' + AsOneLine(keyPath);
}

void ThrowRegistryError(std::uint32_t error, RegistryRoot root, std::string_view keyPath) {
  throw RuntimeError(NumberOfSystemError(error), RegistryWords(error, root, keyPath));
}

} // namespace turfdesk
