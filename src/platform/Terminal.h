// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

namespace turfdesk {

/// Is standard input a terminal, at which somebody can answer a question?
bool InputIsTerminal();

} // namespace turfdesk
