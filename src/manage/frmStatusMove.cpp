// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/frmStatusMove.h"

#include "manage/Move.h"
#include "manage/frmCourseMove.h"

namespace turfdesk {

// Over the main window, for the dialog is hidden.
frmStatusMove::frmStatusMove(SharedState &state, frmCourseMove &dialog)
    : StatusDialog("Moving", state.platform.Files(), dialog.parentWidget()) {
  setObjectName("frmStatusMove");
  SetWork([this, &state, &dialog] { RunMove(state, dialog.Request(), *this); });
}

} // namespace turfdesk
