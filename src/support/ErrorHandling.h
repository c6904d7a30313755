// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"
#include "support/Prompts.h"
#include "support/SharedState.h"

#include <exception>
#include <string>
#include <utility>

namespace turfdesk {

/// A routine with one error handler: runs the body, and on a run-time error shows the routine's label followed by the
/// description and leaves. label is such as "frmTurfManager.LoadCourses(): "; "" shows the description alone.
/// True when the body came to its end.
template <typename Body> bool Guarded(SharedState &state, const std::string &label, Body &&body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const std::exception &error) {
    ShowError(state, label + DescriptionOf(error));
    return false;
  }
}

/// A statement whose run-time error is passed over: nothing is shown and the run goes on. True when it did not fail.
template <typename Statement> bool PassOver(Statement &&statement) {
  try {
    std::forward<Statement>(statement)();
    return true;
  } catch (const std::exception &) {
    return false;
  }
}

} // namespace turfdesk
