// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"
#include "support/basVorinString.h"

#include <memory>
#include <string>
#include <string_view>

namespace turfdesk {

// The helpers over RegistryService that everybody calls. Each opens and closes what it uses, so no key stays open.
// root is a root's name, key a path relative to it, a trailing backslash not counting. A failure of the tree itself
// comes out as RuntimeError.

/// The value as text, or defaultValue when the key cannot be opened or the value is absent.
std::string GetRegistryValue(SharedState &state, std::string_view root, std::string_view key,
                             std::string_view valueName, std::string_view defaultValue);

/// Writes the value, creating the key if it is absent; true when that worked, else GetRegistryError has the words.
/// An empty value under the empty name writes nothing: it makes an empty key.
bool SetRegistryValue(SharedState &state, std::string_view root, std::string_view key, std::string_view valueName,
                      std::string_view value);

bool RegistryValueExists(SharedState &state, std::string_view root, std::string_view key, std::string_view valueName);
bool RegistryKeyExists(SharedState &state, std::string_view root, std::string_view key);

/// True when the key went away. False when it did not exist or cannot be deleted, and GetRegistryError has the words.
bool DeleteRegistryKey(SharedState &state, std::string_view root, std::string_view key);

/// RegistryService::Reserve: what a change of the key needs, held by the result. Null when the change would be refused.
std::unique_ptr<RegistryReservation> ReserveRegistryKey(SharedState &state, KeyChange change, std::string_view root,
                                                        std::string_view key);

/// Names of the key's subkeys in the tree's order; no list when there are none or the key is missing.
StringList GetSubkeys(SharedState &state, std::string_view root, std::string_view key);

/// Words of the last failure; to be taken before the next helper is called.
std::string GetRegistryError(SharedState &state);

} // namespace turfdesk
