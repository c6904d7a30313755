// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QObject>
#include <QSize>

class QWidget;

namespace turfdesk {

/// While one lives, each window of the application opens in a size that fits the font and the screen. The sizes in the
/// forms are meant for the usual font; with a larger one windows open larger. None opens larger than the free part of
/// its screen, the frame included: lists shrink first, and what then has no room yet scrolls, above the last row of
/// the form, which holds the buttons.
class WindowFitter final : public QObject {
public:
  /// Needs the application.
  WindowFitter();

  bool eventFilter(QObject *watched, QEvent *event) override;
};

/// How large a window can be, without its frame, on the screen that it is on.
QSize RoomOnScreen(const QWidget &window);

/// For a window about to be shown: puts it beside another one, on the side that has more room, and over as little of
/// it as the screen makes necessary.
void PlaceBeside(QWidget &window, const QWidget &other);

} // namespace turfdesk
