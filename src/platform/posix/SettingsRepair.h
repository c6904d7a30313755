// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/MessageBoxes.h"
#include "platform/posix/SettingsHome.h"

#include <chrono>
#include <string>

namespace turfdesk {

/// The work of RestoreSettings: gives the words of its box, CR LF between lines; "" when the store is sound.
/// Throws RuntimeError, its words fit to show, when the store cannot be judged or the repair cannot be done.
std::string RepairSettings(const SettingsPaths &paths, std::chrono::milliseconds patience);

/// The work of RefreshGoodCopy. Throws RuntimeError.
void CopyGoodSettings(const SettingsPaths &paths);

} // namespace turfdesk
