// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/MessageBoxes.h"

namespace turfdesk {

/// Message boxes on the screen, over the window in use. Texts show as they stand, never as markup, and can be
/// selected; a text too long for the screen scrolls.
class QtMessageBoxes final : public MessageBoxes {
public:
  BoxAnswer Show(const MessageBox &box) override;
};

} // namespace turfdesk
