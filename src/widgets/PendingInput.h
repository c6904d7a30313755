// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QObject>

namespace turfdesk {

/// While one lives, what the user types and clicks reaches no window, nor does a request to close one.
class InputBlock final : public QObject {
public:
  InputBlock();

  bool eventFilter(QObject *watched, QEvent *event) override;
};

/// Throws away what the user has typed and clicked but no window has seen yet; everything else that is pending runs.
/// For the moment before a question appears: keys pressed while work was going on must not answer it.
void DiscardPendingInput();

} // namespace turfdesk
