// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/MessageBoxes.h"
#include "platform/Screen.h"

#include <stdexcept>

namespace turfdesk::bench {

/// A benchmark asks nobody: whatever is said is a failure.
class NoBoxes final : public MessageBoxes {
public:
  BoxAnswer Show(const MessageBox &box) override { throw std::runtime_error(box.text); }
};

class NoScreen final : public Screen {
public:
  void DoEvents() override {}
  void Repaint() override {}
  void SetMousePointer(MousePointer) override {}
};

} // namespace turfdesk::bench
