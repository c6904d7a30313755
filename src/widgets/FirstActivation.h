// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <functional>

class QWidget;

namespace turfdesk {

/// Runs something once, at the window's first activation: as soon as events are served after it has been painted for
/// the first time. Not every window system tells of an activation, and a window that is not painted yet has no place
/// over which another could open. One that is shown where nobody sees it is not painted; it waits for a second.
void AtFirstActivation(QWidget &window, const std::function<void()> &run);

} // namespace turfdesk
