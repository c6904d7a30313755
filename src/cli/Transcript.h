// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/MessageBoxes.h"

#include <string>
#include <vector>

namespace turfdesk {

/// What a command showed, in the order shown.
struct Transcript {
  struct Message {
    /// "question", "error", "info" or "box".
    std::string kind;
    std::string title;
    /// With the marks of ShownText.h.
    std::string text;
    /// "yes", "no", "ok" or "cancel".
    std::string answer;
  };
  struct Step {
    std::string file;
    std::string route;
  };

  std::vector<Message> messages;
  /// One for each time that the window was let repaint with a new pair of labels.
  std::vector<Step> steps;

  /// Was a box with a stop icon shown?
  bool HasErrors() const;
};

} // namespace turfdesk
