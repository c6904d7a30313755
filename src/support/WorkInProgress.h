// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/StatusWindow.h"
#include "support/ErrorHandling.h"
#include "support/JobProgress.h"
#include "support/SharedState.h"
#include "support/StringTable.h"
#include "support/basVorinString.h"

#include <string>
#include <string_view>

namespace turfdesk {

/// While one lives, long work is shown: the mouse pointer is an hourglass, the window's animation plays, and the parts
/// of the job move one progress bar. A missing animation costs only the animation.
class WorkInProgress {
public:
  /// totalBytes: those of all parts that BeginPart will be told of. The bar keeps back a little beside them, so that
  /// it is full only when the work has succeeded, and not at a question behind the last byte.
  WorkInProgress(SharedState &state, StatusWindow &window, double totalBytes)
      : mState(state), mWindow(window), mProgress(window.WorkProgress(), totalBytes * 1.02 + 1) {
    mState.screen.SetMousePointer(MousePointer::Hourglass);
    mState.workProgress = &mProgress;
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

  /// The job is done, with success.
  void Finish() { mProgress.Finish(); }

private:
  SharedState &mState;
  StatusWindow &mWindow;
  JobProgress mProgress;
};

/// While one lives, the part of a job that is at work has parts of its own.
class JobInJob {
public:
  JobInJob(SharedState &state, double totalBytes)
      : mState(state), mWhole(state.workProgress),
        mParts(mWhole == nullptr ? static_cast<Progress &>(mNobody) : *mWhole, totalBytes) {
    mState.workProgress = &mParts;
  }
  JobInJob(const JobInJob &) = delete;
  JobInJob &operator=(const JobInJob &) = delete;
  ~JobInJob() { mState.workProgress = mWhole; }

  JobProgress &Parts() { return mParts; }

private:
  SharedState &mState;
  NoProgress mNobody;
  JobProgress *mWhole;
  JobProgress mParts;
};

/// The next part of the job at work is a file. Nothing happens where no job is shown.
inline void BeginPart(SharedState &state, std::string_view path) {
  if (state.workProgress != nullptr)
    state.workProgress->BeginPart(state.fileService->GetFileSize(path));
}

/// The text of a route label: from where to where, each in quotes.
inline std::string RouteText(std::string_view from, std::string_view to) {
  return AddQuotes(from) + " " + LoadResString(StringId::To) + " " + AddQuotes(to);
}

} // namespace turfdesk
