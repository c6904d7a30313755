// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Progress.h"

#include <string>
#include <string_view>

namespace turfdesk {

/// A text on a window.
class Label {
public:
  Label() = default;
  Label(const Label &) = delete;
  Label &operator=(const Label &) = delete;
  virtual ~Label() = default;

  virtual void SetCaption(std::string_view text) = 0;
  virtual std::string Caption() const = 0;
};

/// Plays a silent AVI file in a loop.
class Animation {
public:
  Animation() = default;
  Animation(const Animation &) = delete;
  Animation &operator=(const Animation &) = delete;
  virtual ~Animation() = default;

  /// With true, a file starts to play as soon as it is opened.
  virtual void SetAutoPlay(bool play) = 0;
  /// Opens the file at a Windows path. Throws RuntimeError 53 when it is missing, 57 when it cannot be played.
  virtual void Open(std::string_view aviPath) = 0;
  /// Stops and forgets the file.
  virtual void Close() = 0;
};

/// The window that shows long work: two labels, an animation, a progress bar, and a close button that appears when
/// the work is done.
class StatusWindow {
public:
  StatusWindow() = default;
  StatusWindow(const StatusWindow &) = delete;
  StatusWindow &operator=(const StatusWindow &) = delete;
  virtual ~StatusWindow() = default;

  /// The name of the file at work.
  virtual Label &FileLabel() = 0;
  /// The route of the file at work, then the verdict.
  virtual Label &RouteLabel() = 0;
  virtual Animation &WorkAnimation() = 0;
  virtual Progress &WorkProgress() = 0;
  /// Makes btnClose visible. Called once, when the work has ended.
  virtual void ShowCloseButton() = 0;
};

} // namespace turfdesk
