// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/LetterMenu.h"

#include <QKeyEvent>

namespace turfdesk {

namespace {

QList<QAction *> EntriesOfLetter(const QList<QAction *> &entries, const QString &typed) {
  QList<QAction *> fitting;
  if (typed.size() == 1 && typed.front().isLetterOrNumber())
    for (QAction *entry : entries)
      if (entry->isEnabled() && entry->isVisible() && entry->text().startsWith(typed, Qt::CaseInsensitive))
        fitting.append(entry);
  return fitting;
}

} // namespace

void LetterMenu::keyPressEvent(QKeyEvent *event) {
  const QList<QAction *> fitting = EntriesOfLetter(actions(), event->text());
  if (fitting.isEmpty()) {
    QMenu::keyPressEvent(event);
    return;
  }
  setActiveAction(fitting[(fitting.indexOf(activeAction()) + 1) % fitting.size()]);
  if (fitting.size() > 1)
    return;
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QMenu::keyPressEvent(&enter);
}

} // namespace turfdesk
