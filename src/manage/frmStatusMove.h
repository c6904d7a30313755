// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"
#include "widgets/StatusDialog.h"

namespace turfdesk {

class frmCourseMove;

/// The window of a move: runs it at its first activation, with what the move dialog then holds.
class frmStatusMove final : public StatusDialog {
public:
  frmStatusMove(SharedState &state, frmCourseMove &dialog);
};

} // namespace turfdesk
