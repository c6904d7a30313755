// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/EntryName.h"

#include "platform/CaseFold.h"
#include "platform/WindowsNames.h"

#include <algorithm>

namespace turfdesk {

namespace {

// Far beyond what any archive of a course has; it bounds the work on a hostile one.
constexpr std::size_t LongestEntryName = 4096;

ZipStatus CheckComponent(std::string_view component) {
  if (component == "..")
    return ZipStatus::OutsideFolder;
  return IsWindowsName(component) ? ZipStatus::Done : ZipStatus::CannotCreateFile;
}

bool HasDriveLetter(std::string_view name) {
  const char letter = static_cast<char>(name[0] | 0x20);
  return name.size() > 1 && name[1] == ':' && letter >= 'a' && letter <= 'z';
}

} // namespace

ZipStatus CheckEntryName(std::string_view name) {
  if (name.empty() || name.size() > LongestEntryName)
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
