// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"
#include "widgets/StatusDialog.h"

namespace turfdesk {

class frmCourseCompress;

/// The window of the writing of a package: does it at its first activation, with what the compress dialog then holds.
class frmStatusCompress final : public StatusDialog {
public:
  /// The dialog may be hidden, so the window over which this one opens is named apart.
  frmStatusCompress(SharedState &state, const frmCourseCompress &dialog, QWidget *parent);
};

} // namespace turfdesk
