// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/NameList.h"

#include "platform/NameOrder.h"
#include "widgets/ItemToolTips.h"
#include "widgets/QtText.h"
#include "widgets/RowDelegate.h"

#include <functional>

namespace turfdesk {

NameList::NameList(QWidget *parent) : QListWidget(parent) {
  setItemDelegate(new RowDelegate(this));
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void NameList::SetNames(std::vector<std::string> names) {
  clear();
  SortForPeople(names, std::identity());
  for (const std::string &name : names)
    addItem(OneLine(name));
}

bool NameList::viewportEvent(QEvent *event) {
  return ShowWholeTextOfItem(*this, event) || QListWidget::viewportEvent(event);
}

} // namespace turfdesk
