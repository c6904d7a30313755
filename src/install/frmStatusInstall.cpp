// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/frmStatusInstall.h"

#include "install/RunInstall.h"
#include "install/frmCourseInstall.h"

namespace turfdesk {

frmStatusInstall::frmStatusInstall(SharedState &state, frmCourseInstall &dialog)
    : StatusDialog("Installing", state.platform.Files(), &dialog) {
  setObjectName("frmStatusInstall");
  SetWork([this, &state, &dialog] { RunInstall(state, dialog.Request(), *this); });
}

} // namespace turfdesk
