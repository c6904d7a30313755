// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QMenu>

namespace turfdesk {

/// A menu whose entries are chosen by their first letters. Where several entries have the letter, each press marks the
/// next of them.
class LetterMenu final : public QMenu {
  Q_OBJECT

public:
  using QMenu::QMenu;

protected:
  void keyPressEvent(QKeyEvent *event) override;
};

} // namespace turfdesk
