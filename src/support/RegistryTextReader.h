// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryBranches.h"
#include "support/RegistryTextLines.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace turfdesk {

/// What a line of a registry editor's file says (version 5 of the format). Texts are UTF-8.
struct RegistryStatement {
  enum class Kind {
    /// The lines that follow are about this key, which is to exist.
    Key,
    DeleteKey,
    SetValue,
    /// The value is of a type beyond text and 32-bit number, or its bytes are not what its type calls for.
    SetOtherValue,
    DeleteValue,
  };

  Kind kind = Kind::Key;
  /// In which line it begins, 1-based.
  std::size_t line = 0;
  /// Full path of the key, root included, as the file has it but for a trailing backslash. It begins with a root that
  /// the registry knows, and no name in it is empty.
  std::string key;
  /// "" for the default value.
  std::string valueName;
  /// Of SetValue: RegSz or RegDword.
  RegistryData data;
};

struct RegistryTextFault {
  /// 1-based.
  std::size_t line = 0;
  /// A sentence that says what is wrong with the line.
  std::string words;
};

/// So many malformed lines are found; the rest of the text is left unread then.
inline constexpr std::size_t MostRegistryTextFaults = 20;

/// Reads a registry editor's file (docs/file-formats.md tells its format) and gives its statements in their order.
/// Returns its malformed lines, in their order: one without any is whole, of another nothing should be used.
std::vector<RegistryTextFault> ReadRegistryText(const ByteSource &source,
                                                const std::function<void(const RegistryStatement &)> &take);

struct RegistryText {
  std::vector<RegistryStatement> statements;
  std::vector<RegistryTextFault> faults;
};

/// The same for a file whose bytes are in memory.
RegistryText ParseRegistryText(std::span<const std::uint8_t> bytes);

} // namespace turfdesk
