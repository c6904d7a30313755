// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryBranches.h"

#include <string>
#include <string_view>

namespace turfdesk {

/// Writes a registry editor's file (docs/file-formats.md tells its format). Throws RuntimeError 52, with words that
/// name the key, for what such a file cannot hold: a NUL, bytes that are no UTF-8, a line break in the name of a key.
class RegistryTextWriter {
public:
  /// path begins with the root's name.
  void AddKey(const std::string &path);
  /// Adds a value to the key that was added last.
  void AddValue(const RegistryValue &value);

  /// The file as text: UTF-8 with CR LF.
  std::string Text() const;

private:
  std::string mKey;
  std::string mKeys;
};

/// The bytes of the file that holds such a text: UTF-16LE with a byte order mark.
std::string RegistryTextBytes(std::string_view text);

} // namespace turfdesk
