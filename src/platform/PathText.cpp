// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/PathText.h"

#include "platform/CaseFold.h"
#include "platform/NextName.h"
#include "platform/WindowsNames.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace turfdesk {

namespace {

/// Takes the root off a full path: a drive, or the names of a computer and its share.
std::string TakeRoot(std::string_view &path) {
  std::string root;
  if (IsFullWindowsPath(path)) {
    root = {static_cast<char>(path[0] & ~0x20), ':'};
    path.remove_prefix(2);
    return root;
  }
  root = "\\";
  path.remove_prefix(2);
  for (int part = 0; part < 2; ++part)
    if (const std::string_view name = NextName(path, IsSeparator); !name.empty())
      root.append("\\").append(name);
  return root;
}

/// What is no code of a byte stands for itself.
std::string PercentDecoded(std::string_view text) {
  std::string decoded;
  while (!text.empty()) {
    constexpr std::size_t length = 3;
    unsigned char byte = 0;
    const char *digits = text.data() + 1;
    const bool isCode =
        text.size() >= length && text[0] == '%' && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    decoded += isCode ? static_cast<char>(byte) : text[0];
    text.remove_prefix(isCode ? length : 1);
  }
  return decoded;
}

} // namespace

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

std::string_view WithoutSystemBeginning(std::string_view path) {
  constexpr std::string_view beginning = R"(\\?\)";
  if (path.starts_with(beginning) && IsFullWindowsPath(path.substr(beginning.size())))
    path.remove_prefix(beginning.size());
  return path;
}

std::string CleanPath(std::string_view path) {
  constexpr std::string_view networkBeginning = R"(\\?\UNC\)";
  std::string plain(WithoutSystemBeginning(path));
  if (path.starts_with(networkBeginning))
    plain = R"(\\)" + std::string(path.substr(networkBeginning.size()));
  if (!IsFullWindowsPath(plain) && !IsNetworkPath(plain))
    return plain;
  std::string_view names = plain;
  std::string clean = TakeRoot(names);
  const std::size_t root = clean.size();
  while (!names.empty()) {
    const std::string_view name = NextName(names, IsSeparator);
    if (name.empty() || name == ".")
      continue;
    if (name != "..")
      clean.append("\\").append(name);
    else if (clean.size() > root)
      clean.resize(clean.rfind('\\'));
  }
  // "C:" means something else than "C:\".
  return clean.size() == 2 ? clean + "\\" : clean;
}

std::optional<std::string> PathOfFileAddress(std::string_view text) {
  constexpr std::string_view protocol = "file:";
  if (!EqualsIgnoringCase(text.substr(0, protocol.size()), protocol))
    return std::nullopt;
  text.remove_prefix(protocol.size());
  std::string_view computer;
  if (text.starts_with("//")) {
    text.remove_prefix(2);
    computer = text.substr(0, text.find('/'));
    text.remove_prefix(computer.size());
  }
  if (!text.starts_with('/'))
    return std::nullopt;
  std::string path = PercentDecoded(text);
  if (!computer.empty() && !EqualsIgnoringCase(computer, "localhost"))
    return R"(\\)" + PercentDecoded(computer) + path;
  return IsFullWindowsPath(std::string_view(path).substr(1)) ? path.substr(1) : path;
}

bool IsAddress(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::string_view protocol = text.substr(0, colon);
  return colon != std::string_view::npos && colon > 1 &&
         std::all_of(protocol.begin(), protocol.end(), [](unsigned char c) { return std::isalnum(c) != 0; });
}

} // namespace turfdesk
