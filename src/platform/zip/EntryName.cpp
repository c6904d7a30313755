// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/EntryName.h"

#include "platform/CaseFold.h"
#include "platform/NextName.h"
#include "platform/WindowsNames.h"
#include "platform/zip/EntrySelection.h"

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

/// What macOS packs beside each file.
bool IsRecord(std::string_view name) {
  constexpr std::string_view folder = "__MACOSX\\";
  return name.starts_with(folder) || BareFileName(name).starts_with("._");
}

} // namespace

EntryName ReadEntryName(std::string_view stored) {
  EntryName name{std::string(stored)};
  std::replace(name.text.begin(), name.text.end(), '/', '\\');
  const bool isTooLong = name.text.size() > LongestEntryName;
  if (!name.text.empty() && (name.text[0] == '\\' || HasDriveLetter(name.text)))
    name.status = ZipStatus::OutsideFolder;
  else if (name.text.empty() || isTooLong)
    name.status = ZipStatus::CannotCreateFile;
  std::string kept;
  std::string_view rest = name.text;
  while (!rest.empty()) {
    const std::string_view part = NextName(rest, [](char c) { return c == '\\'; });
    if (part.empty() || part == ".")
      continue;
    kept.append(kept.empty() ? 0 : 1, '\\').append(part);
    if (name.status == ZipStatus::Done)
      name.status = CheckComponent(part);
  }
  name.isFolder = name.text.ends_with('\\') || name.text == "." || name.text.ends_with("\\.");
  name.isRecord = IsRecord(kept);
  if (name.status == ZipStatus::Done)
    name.text = std::move(kept);
  return name;
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
    return after.starts_with(before) && (after.size() == before.size() || after[before.size()] == separator);
  };
  return std::adjacent_find(sorted.begin(), sorted.end(), clash) != sorted.end();
}

} // namespace turfdesk
