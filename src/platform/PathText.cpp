// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/PathText.h"

#include "platform/WindowsNames.h"

#include <algorithm>
#include <cctype>

namespace turfdesk {

std::string_view DirPrefixOf(std::string_view path) {
  const std::size_t end = path.find_last_of(R"(\/:)");
  return end == std::string_view::npos ? "" : path.substr(0, end + 1);
}

std::string_view PathPartOf(std::string_view path) {
  std::string_view folder = DirPrefixOf(path);
  // The separator of a root belongs to it: "C:" means something else than "C:\".
  while (folder.size() > 1 && IsSeparator(folder.back()) && folder[folder.size() - 2] != ':')
    folder.remove_suffix(1);
  return folder;
}

std::string_view FilePartOf(std::string_view path) { return path.substr(DirPrefixOf(path).size()); }

std::string_view BaseNameOf(std::string_view path) {
  const std::string_view name = FilePartOf(path);
  return name.substr(0, name.rfind('.'));
}

std::string_view ExtensionOf(std::string_view path) {
  const std::string_view name = FilePartOf(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos || dot + 1 == name.size() ? "" : name.substr(dot);
}

bool IsAddress(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::string_view protocol = text.substr(0, colon);
  return colon != std::string_view::npos && colon > 1 &&
         std::all_of(protocol.begin(), protocol.end(), [](unsigned char c) { return std::isalnum(c) != 0; });
}

} // namespace turfdesk
