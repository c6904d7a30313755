// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/NameList.h"

#include "platform/CaseFold.h"
#include "widgets/ItemToolTips.h"
#include "widgets/QtText.h"
#include "widgets/RowDelegate.h"

#include <algorithm>

namespace turfdesk {

NameList::NameList(QWidget *parent) : QListWidget(parent) {
  setItemDelegate(new RowDelegate(this));
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void NameList::SetNames(std::vector<std::string> names) {
  clear();
  std::ranges::stable_sort(names, {}, FoldCase);
  for (const std::string &name : names)
    addItem(OneLine(name));
}

bool NameList::viewportEvent(QEvent *event) {
  return ShowWholeTextOfItem(*this, event) || QListWidget::viewportEvent(event);
}

} // namespace turfdesk
