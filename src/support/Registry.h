// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace turfdesk {

// The settings tree without RegistryService: for the file types, which lie under another root, and for a repair path
// that runs because the service could not be created.

/// Creates a key. Its result is not looked at: an existing key is no failure, and neither is a refusal.
void CreateNewKey(SharedState &state, std::string_view keyName, RegistryRoot root);

/// Sets a value of a key under HKEY_CLASSES_ROOT. A failed step is told in a plain box, and the next one follows.
/// valueType is RegSz or RegDword; the value of the latter is a decimal number.
void SetKeyValue(SharedState &state, std::string_view keyName, std::string_view valueName, std::string_view value,
                 std::uint32_t valueType);

/// Writes to an open key and gives the platform's code. A type other than RegSz and RegDword writes nothing and gives
/// 0.
std::int32_t SetValueEx(SharedState &state, RegistryHandle key, std::string_view valueName, std::uint32_t valueType,
                        std::string_view value);

/// Reads a value of a key under HKEY_LOCAL_MACHINE into state.registryResult and shows it in a plain box.
void QueryValue(SharedState &state, std::string_view keyName, std::string_view valueName);

/// Reads from an open key and gives the platform's code, or -1 for a type other than RegSz and RegDword, which leaves
/// value as it was. A text ends in its terminating NUL.
std::int32_t QueryValueEx(SharedState &state, RegistryHandle key, std::string_view valueName, std::string &value);

} // namespace turfdesk
