// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/StatusWindow.h"
#include "support/ErrorHandling.h"
#include "support/SharedState.h"
#include "support/StringTable.h"
#include "support/basVorinString.h"

#include <string>
#include <string_view>

namespace turfdesk {

/// While one lives, long work is shown: the mouse pointer is an hourglass, the window's animation plays, and copies
/// move its progress bar. A missing animation costs only the animation.
class WorkInProgress {
public:
  WorkInProgress(SharedState &state, StatusWindow &window) : mState(state), mWindow(window) {
    mState.screen.SetMousePointer(MousePointer::Hourglass);
    mState.workProgress = &mWindow.WorkProgress();
    PassOver([this] {
      mWindow.WorkAnimation().SetAutoPlay(true);
      mWindow.WorkAnimation().Open(mState.workingAvi);
    });
  }
  WorkInProgress(const WorkInProgress &) = delete;
  WorkInProgress &operator=(const WorkInProgress &) = delete;
  ~WorkInProgress() {
    PassOver([this] {
      mWindow.WorkAnimation().SetAutoPlay(false);
      mWindow.WorkAnimation().Close();
    });
    mState.workProgress = nullptr;
    mState.screen.SetMousePointer(MousePointer::Default);
  }

private:
  SharedState &mState;
  StatusWindow &mWindow;
};

/// The text of a route label: from where to where, each in quotes.
inline std::string RouteText(std::string_view from, std::string_view to) {
  return AddQuotes(from) + " " + LoadResString(StringId::To) + " " + AddQuotes(to);
}

} // namespace turfdesk
