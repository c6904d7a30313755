// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/StatusWindow.h"
#include "support/SharedState.h"

#include <string_view>

namespace turfdesk {

/// Installs a compressed course package: lists it, judges it (one course, no more), extracts it to the temporary
/// folder, and installs its libraries, its course and its media into destDir, never in place. Extracted files are
/// deleted, except media that no course row asks for. True when the package was installed, or when the user declined
/// to replace its course; else what stood in the way has been shown, and what was installed before stays.
bool InstallPackage(SharedState &state, std::string_view packagePath, std::string_view destDir, StatusWindow &window);

} // namespace turfdesk
