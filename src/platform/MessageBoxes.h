// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>

namespace turfdesk {

enum class BoxButtons { Ok, OkCancel, YesNo };
enum class BoxIcon { None, Question, Stop, Information };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// A modal box: one text, UTF-8, line breaks as CR LF. The first button is the default.
struct MessageBox {
  std::string text;
  std::string title;
  BoxButtons buttons = BoxButtons::Ok;
  BoxIcon icon = BoxIcon::None;
};

/// The one seam through which every question and message passes.
class MessageBoxes {
public:
  MessageBoxes() = default;
  MessageBoxes(const MessageBoxes &) = delete;
  MessageBoxes &operator=(const MessageBoxes &) = delete;
  virtual ~MessageBoxes() = default;

  /// Shows the box and waits for the answer. Closing the box without a choice answers No, Cancel or (where it has
  /// that button alone) Ok.
  virtual BoxAnswer Show(const MessageBox &box) = 0;
};

} // namespace turfdesk
