// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

namespace turfdesk {

/// Shapes of the mouse pointer, with the platform's numbers.
enum class MousePointer { Default = 0, Hourglass = 11 };

/// What long work on the user-interface thread asks of the screen.
class Screen {
public:
  Screen() = default;
  Screen(const Screen &) = delete;
  Screen &operator=(const Screen &) = delete;
  virtual ~Screen() = default;

  /// Lets pending window events run once.
  virtual void DoEvents() = 0;
  /// Lets windows repaint, without any user input. Called often by copies; costs little when nothing is to be done.
  virtual void Repaint() = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;
};

} // namespace turfdesk
