// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "packaging/frmStatusCompress.h"

#include "packaging/RunCompress.h"
#include "packaging/frmCourseCompress.h"

namespace turfdesk {

frmStatusCompress::frmStatusCompress(SharedState &state, const frmCourseCompress &dialog, QWidget *parent)
    : StatusDialog("Compressing", state.platform.Files(), parent) {
  setObjectName("frmStatusCompress");
  SetWork([this, &state, &dialog] { RunCompress(state, dialog.Request(), *this); });
}

} // namespace turfdesk
