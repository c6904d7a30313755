// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Screen.h"

#include <QElapsedTimer>

namespace turfdesk {

/// The screen of the window program. There may be one at a time, and only while the application object lives.
class QtScreen final : public Screen {
public:
  ~QtScreen() override;

  void DoEvents() override;
  void Repaint() override;
  void SetMousePointer(MousePointer pointer) override;

private:
  QElapsedTimer mSinceRepaint;
  bool mHourglass = false;
};

} // namespace turfdesk
