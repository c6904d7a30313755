// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QStyledItemDelegate>

namespace turfdesk {

/// Draws the rows of a list with air above and below the text; some styles cut accents off without it.
class RowDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    return QStyledItemDelegate::sizeHint(option, index).grownBy({0, 2, 0, 2});
  }
};

} // namespace turfdesk
