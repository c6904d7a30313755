// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QIcon>

namespace turfdesk {

/// The program's icon, in all sizes that window systems ask for.
QIcon ProgramIcon();

} // namespace turfdesk
