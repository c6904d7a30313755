// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

class QAbstractItemView;
class QEvent;

namespace turfdesk {

/// For a view's viewportEvent: answers a tool tip event with the whole text of the item at the pointer where the view
/// cuts it short, else with no tip. False for any other event.
bool ShowWholeTextOfItem(QAbstractItemView &view, QEvent *event);

} // namespace turfdesk
