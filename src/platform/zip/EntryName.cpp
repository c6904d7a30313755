// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/EntryName.h"

#include "platform/CaseFold.h"

#include <algorithm>
#include <array>
#include <utf8proc.h>

namespace turfdesk {

namespace {

constexpr std::size_t LongestComponent = 255;
constexpr std::size_t LongestName = 4096;

constexpr std::array<std::string_view, 6> PlainDevices = {"con", "prn", "aux", "nul", "conin$", "conout$"};
// COM and LPT with one digit; Windows also takes the superscripts of 1, 2 and 3 for digits.
constexpr std::array<std::string_view, 2> NumberedDevices = {"com", "lpt"};
constexpr std::array<std::string_view, 3> SuperscriptDigits = {"\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    utf8proc_int32_t character = 0;
    const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(text.data()),
                                                     static_cast<utf8proc_ssize_t>(text.size()), &character);
    if (length <= 0)
      return false;
    text.remove_prefix(static_cast<std::size_t>(length));
  }
  return true;
}

bool IsDeviceNumber(std::string_view text) {
  if (text.size() == 1)
    return text[0] >= '0' && text[0] <= '9';
  return std::find(SuperscriptDigits.begin(), SuperscriptDigits.end(), text) != SuperscriptDigits.end();
}

/// Devices keep their names whatever extension follows, and whatever blanks stand before it.
bool IsDeviceName(std::string_view component) {
  std::string_view stem = component.substr(0, component.find('.'));
  stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
  std::string lower(stem);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
  if (std::find(PlainDevices.begin(), PlainDevices.end(), lower) != PlainDevices.end())
    return true;
  return std::any_of(NumberedDevices.begin(), NumberedDevices.end(), [&lower](std::string_view device) {
    return lower.starts_with(device) && IsDeviceNumber(std::string_view(lower).substr(device.size()));
  });
}

bool IsForbiddenCharacter(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 0x20 || code == 0x7F || std::string_view("<>:\"/\\|?*").find(c) != std::string_view::npos;
}

ZipStatus CheckComponent(std::string_view component) {
  if (component == "..")
    return ZipStatus::OutsideFolder;
  if (component.empty() || component.size() > LongestComponent || component.back() == ' ' || component.back() == '.')
    return ZipStatus::CannotCreateFile;
  if (std::any_of(component.begin(), component.end(), IsForbiddenCharacter) || IsDeviceName(component))
    return ZipStatus::CannotCreateFile;
  return ZipStatus::Done;
}

bool HasDriveLetter(std::string_view name) {
  const char letter = static_cast<char>(name[0] | 0x20);
  return name.size() > 1 && name[1] == ':' && letter >= 'a' && letter <= 'z';
}

} // namespace

ZipStatus CheckEntryName(std::string_view name) {
  if (name.empty() || name.size() > LongestName || !IsUtf8(name))
    return ZipStatus::CannotCreateFile;
  if (name[0] == '\\' || HasDriveLetter(name))
    return ZipStatus::OutsideFolder;
  for (;;) {
    const std::size_t end = name.find('\\');
    const ZipStatus status = CheckComponent(name.substr(0, end));
    if (status != ZipStatus::Done || end == std::string_view::npos)
      return status;
    name.remove_prefix(end + 1);
  }
}

bool NamesClash(const std::vector<std::string> &names) {
  // With the separator below every character that a name can have, what lies in a folder sorts right behind it.
  constexpr char separator = '\x01';
  std::vector<std::string> sorted;
  sorted.reserve(names.size());
  for (const std::string &name : names) {
    sorted.push_back(FoldCase(name));
    std::replace(sorted.back().begin(), sorted.back().end(), '\\', separator);
  }
  std::sort(sorted.begin(), sorted.end());
  const auto clash = [](const std::string &before, const std::string &after) {
    if (!after.starts_with(before) || before.back() == separator)
      return false;
    return after.size() == before.size() || after[before.size()] == separator;
  };
  return std::adjacent_find(sorted.begin(), sorted.end(), clash) != sorted.end();
}

} // namespace turfdesk
