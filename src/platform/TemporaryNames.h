// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace turfdesk {

/// Names of temporary files or folders: a beginning, random letters and digits, a check over all that, and an end.
/// What bears such a name may be deleted when nobody uses it any more, so nobody else may come upon one: a word that
/// a person puts in the place of the random part fails the check.
struct TemporaryNames {
  static constexpr std::size_t RandomLength = 10;
  static constexpr std::size_t CheckLength = 6;

  std::string_view beginning;
  std::string_view end;

  /// The name that belongs to these random bytes.
  std::string Name(std::span<const std::uint8_t, RandomLength> random) const {
    std::string name(beginning);
    for (const std::uint8_t byte : random)
      name += Letters[byte % Letters.size()];
    return name.append(Check(name)).append(end);
  }

  bool Include(std::string_view name) const {
    const std::size_t checked = beginning.size() + RandomLength;
    return name.size() == checked + CheckLength + end.size() && name.starts_with(beginning) && name.ends_with(end) &&
           name.substr(checked, CheckLength) == Check(name.substr(0, checked));
  }

private:
  static constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyz234567";

  static std::string Check(std::string_view text) {
    // FNV-1a, of whose bits all come to bear in the lowest thirty.
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char c : text)
      hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    hash ^= hash >> 32U;
    std::string check;
    for (std::size_t i = 0; i < CheckLength; ++i, hash /= Letters.size())
      check += Letters[hash % Letters.size()];
    return check;
  }
};

/// What a file is written under until it has its own name.
inline constexpr TemporaryNames StagedFileNames{".turfdesk-", ".tmp"};
/// What a file is set aside under that is about to be replaced: such a name, and a dash and the file's own name where
/// that is not too long.
inline constexpr TemporaryNames SetAsideNames{".turfdesk-kept-", ""};

/// The name that a file had before it was set aside; nothing for any other name.
inline std::optional<std::string> NameBeforeSetAside(std::string_view name) {
  constexpr std::size_t length =
      SetAsideNames.beginning.size() + TemporaryNames::RandomLength + TemporaryNames::CheckLength;
  if (name.size() <= length + 1 || name[length] != '-' || !SetAsideNames.Include(name.substr(0, length)))
    return std::nullopt;
  return std::string(name.substr(length + 1));
}

/// Folders of running programs for what they need for a while.
inline constexpr TemporaryNames TempFolderNames{"turfdesk-temp-", ""};

} // namespace turfdesk
