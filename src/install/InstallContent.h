// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "platform/StatusWindow.h"
#include "support/SharedState.h"

#include <string_view>

namespace turfdesk {

// Installing one file: read its identity, decide whether it may go to the chosen place, copy it there, enter it in the
// catalogue and show it in the main window's list. What stands in the way has been shown when a routine returns.
//
// source is the file's full path. destDir is the directory to install to; "" leaves the file where it lies. row must
// come in null. It becomes the row that shows the content; with a true result it stays null when the user declined to
// replace, and nothing was done. A false result always leaves it null. The labels show the work.

/// Asks about each required library that is not catalogued. Throws RuntimeError 9 where such a library has no name.
bool InstallCourse(SharedState &state, std::string_view source, std::string_view destDir, Row *&row, Label &fileLabel,
                   Label &routeLabel);

bool InstallLibrary(SharedState &state, std::string_view source, std::string_view destDir, Row *&row, Label &fileLabel,
                    Label &routeLabel);

} // namespace turfdesk
