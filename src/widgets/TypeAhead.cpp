// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/TypeAhead.h"

#include "platform/NameOrder.h"
#include "widgets/QtText.h"

#include <QApplication>

namespace turfdesk {

void TypeAhead::Search(QAbstractItemView &view, const QString &typed) {
  // An empty text is Qt's way to say that a search begins.
  if (typed.isEmpty() || !mSinceTyped.isValid() || mSinceTyped.hasExpired(QApplication::keyboardInputInterval()))
    mTyped.clear();
  mSinceTyped.start();
  mTyped += typed;
  const bool oneLetter = !mTyped.isEmpty() && mTyped.count(mTyped.front()) == mTyped.size();
  const std::string wanted = BaseLetters(ToUtf8(oneLetter ? mTyped.left(1) : mTyped));
  const QAbstractItemModel *model = view.model();
  if (wanted.empty() || model == nullptr)
    return;
  const int rows = model->rowCount();
  const QModelIndex current = view.currentIndex();
  // While a word is being typed, the row found for its beginning may still fit.
  const int first = !current.isValid() ? 0 : current.row() + (oneLetter ? 1 : 0);
  for (int i = 0; i < rows; ++i) {
    const QModelIndex row = model->index((first + i) % rows, 0);
    if (BaseLetters(ToUtf8(row.data().toString())).starts_with(wanted)) {
      view.setCurrentIndex(row);
      return;
    }
  }
}

} // namespace turfdesk
