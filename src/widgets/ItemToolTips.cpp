// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/ItemToolTips.h"

#include "widgets/QtText.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>

namespace turfdesk {

bool ShowWholeTextOfItem(QAbstractItemView &view, QEvent *event) {
  if (event->type() != QEvent::ToolTip)
    return false;
  const auto *help = static_cast<QHelpEvent *>(event);
  const QModelIndex index = view.indexAt(help->pos());
  const int shown = std::min(view.visualRect(index).width(), view.viewport()->width());
  if (index.isValid() && view.sizeHintForIndex(index).width() > shown)
    QToolTip::showText(help->globalPos(), PlainToolTip(index.data().toString()), view.viewport());
  else
    QToolTip::hideText();
  return true;
}

} // namespace turfdesk
