// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <string>
#include <string_view>

namespace turfdesk {

/// Starts the system information tool of the platform, which the settings tree names. Where there is none, or it cannot
/// be started, a plain box says so.
void StartSysInfo(SharedState &state);

/// Reads a value by the direct functions of the settings tree. A text replaces keyVal. A number comes as the code of
/// each of its bytes in hexadecimal, the last byte first, appended to keyVal, and "&h" in front of it all. A value of
/// another type leaves keyVal as it was. False, and keyVal is "", when key or value is missing or the data is longer
/// than 1024 bytes.
bool GetKeyValue(RegistryFunctions &functions, RegistryRoot keyRoot, std::string_view keyName,
                 std::string_view subKeyRef, std::string &keyVal);

} // namespace turfdesk
