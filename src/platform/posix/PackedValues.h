// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryFunctions.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace turfdesk {

enum class SettingsType : std::uint32_t { Text = RegSz, Number = RegDword };

/// What a value holds: text or number, as the type says. The text belongs to somebody else.
struct SettingsValue {
  SettingsType type = SettingsType::Text;
  std::int32_t number = 0;
  std::string_view text;

  bool operator==(const SettingsValue &) const = default;
};

/// The values of one key, in one piece of memory: a key has a handful of short values, and what a lookup costs is the
/// number of places in memory that it has to visit. A key that has more than that, as settings from elsewhere may,
/// keeps them in a map.
class PackedValues {
public:
  PackedValues() = default;
  PackedValues(PackedValues &&) = default;
  PackedValues &operator=(PackedValues &&) = default;
  PackedValues(const PackedValues &other)
      : mBytes(other.mBytes), mMany(other.mMany ? std::make_unique<Many>(*other.mMany) : nullptr) {}
  PackedValues &operator=(const PackedValues &other) { return *this = PackedValues(other); }
  ~PackedValues() = default;

  /// The value is valid until the next change.
  std::optional<SettingsValue> Find(std::string_view foldedName) const;
  /// Sets a value, adding it when absent.
  void Set(std::string_view foldedName, const SettingsValue &value);
  /// Removes a value. False when it is absent.
  bool Erase(std::string_view foldedName);
  /// Adds a value that is known to be absent.
  void Append(std::string_view foldedName, const SettingsValue &value);
  /// The same values, in whatever order they were set.
  bool operator==(const PackedValues &other) const;

private:
  struct Content {
    SettingsType type;
    std::int32_t number;
    std::string text;

    bool operator==(const Content &) const = default;
  };
  using Many = std::map<std::string, Content, std::less<>>;

  struct Head {
    std::uint32_t nameLength;
    SettingsType type;
    std::uint32_t dataLength;

    std::size_t Size() const { return sizeof(Head) + nameLength + dataLength; }
  };

  Head HeadAt(std::size_t offset) const;
  std::size_t OffsetOf(std::string_view foldedName) const;
  SettingsValue ValueAt(std::size_t offset) const;
  void Unpack();

  std::string mBytes;
  std::unique_ptr<Many> mMany;
};

} // namespace turfdesk
