// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <cstddef>
#include <string>

namespace turfdesk {

// Settings are carried from one system to another in files of the registry editor: the game's own settings key and the
// keys of the three file types, each with all that lies below it. Nothing else of the tree is written or touched.
// docs/file-formats.md tells the format. Failures are told through the prompts and make a result false.

/// Gives the settings as text: UTF-8 with CR LF. RegistryTextBytes makes the bytes of a file of it.
bool ReadSettingsText(SharedState &state, std::string &text);

/// Writes the settings to a file, whole or not at all, asking before an existing one is replaced. path is a full
/// Windows path.
bool ExportSettings(SharedState &state, const std::string &path);

/// What a file held.
struct ImportCounts {
  std::size_t keys = 0;
  std::size_t valuesWritten = 0;
  /// Of keys and values.
  std::size_t deletions = 0;
  /// Keys, deleted ones included, that are none of ours.
  std::size_t keysSkipped = 0;
  /// Values of our keys that are neither text nor 32-bit number. They have been told.
  std::size_t valuesSkipped = 0;
};

/// Takes the settings over from a file, all of them or, when a line is malformed or anything else fails, none. path is
/// a full Windows path. counts is set when the result is true.
bool ImportSettings(SharedState &state, const std::string &path, ImportCounts &counts);

/// What a person is told of an import or export that worked.
std::string ImportVerdict(const ImportCounts &counts);
std::string ExportVerdict();

} // namespace turfdesk
