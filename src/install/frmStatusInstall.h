// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"
#include "widgets/StatusDialog.h"

namespace turfdesk {

class frmCourseInstall;

/// The window of an install: runs it at its first activation, with what the install dialog then holds.
class frmStatusInstall final : public StatusDialog {
public:
  frmStatusInstall(SharedState &state, frmCourseInstall &dialog);
};

} // namespace turfdesk
