// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "platform/StatusWindow.h"
#include "support/SharedState.h"

#include <string>
#include <string_view>

namespace turfdesk {

/// Caption of the dialog that asks where to: the row's name and its kind, which is that of the active list.
std::string MoveCaption(const SharedState &state, const Row &item);

/// What is to be moved, and where to.
struct MoveRequest {
  /// A row of the list that commands act on; null shows that nothing has been selected.
  Row *item = nullptr;
  /// An existing directory, as a full Windows path.
  std::string destination;
};

/// The run of a move. What stands in the way is told through the prompts, the verdict stands in the window's route
/// label and is the result. No run-time error comes out; one from the move itself counts as its failure.
bool RunMove(SharedState &state, const MoveRequest &request, StatusWindow &window);

// Each moves file by file into the destination, over files of the same name that lay there before, and points catalogue
// and row at the new place after each. A second file of one name in the same move is refused. A step that is done stays
// done. A file whose new place cannot be recorded goes back where it was. What stood in the way has been shown when the
// result is false. The labels show the work.

/// Moves a course with its media, then each library that the course alone uses and the user wants moved. Courses that
/// belong to the game itself are refused.
bool MoveCourse(SharedState &state, Row &row, std::string_view destination, Label &fileLabel, Label &routeLabel);

bool MoveLibrary(SharedState &state, Row &row, std::string_view destination, Label &fileLabel, Label &routeLabel);

} // namespace turfdesk
