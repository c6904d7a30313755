// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/MessageBoxes.h"
#include "support/SharedState.h"

#include <string_view>

namespace turfdesk {

// Each shows a modal box titled "Turf Desk" and, after it has closed, lets pending window events run once.

/// Buttons Yes (the default) and No, and a question icon. True on Yes.
bool AskYesNo(SharedState &state, std::string_view text);
/// Buttons OK (the default) and Cancel, and a question icon. True on OK.
bool AskOkCancel(SharedState &state, std::string_view text);
/// OK and a stop icon.
void ShowError(SharedState &state, std::string_view text);
/// OK and no icon.
void ShowInfo(SharedState &state, std::string_view text);

/// A plain box with OK and no icon, under the program's name. For the direct functions of the settings tree.
void ShowPlainBox(MessageBoxes &boxes, std::string_view text);

} // namespace turfdesk
