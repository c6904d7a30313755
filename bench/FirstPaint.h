// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace turfdesk::bench {

/// A display of its own without a screen, gone with the object. Programs started from here show their windows on it.
class TestDisplay {
public:
  /// Throws std::runtime_error when Xvfb does not start.
  TestDisplay();
  TestDisplay(const TestDisplay &) = delete;
  TestDisplay &operator=(const TestDisplay &) = delete;
  ~TestDisplay();

private:
  pid_t mServer = 0;
};

/// Starts the program and gives the seconds until its first window has been painted, seen from outside: until a pixel
/// in the middle of the window no longer is that of the display's background. Then the program is ended.
/// Throws std::runtime_error when that takes more than a minute.
double SecondsToFirstPaint(const std::vector<std::string> &command);

} // namespace turfdesk::bench
