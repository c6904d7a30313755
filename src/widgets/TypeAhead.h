// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QAbstractItemView>
#include <QElapsedTimer>

namespace turfdesk {

/// Finds rows by their first letters, for the keyboardSearch of a view, without regard to case and accents on either
/// side. Letters typed without a pause are taken together; one letter again and again goes from row to row.
class TypeAhead final {
public:
  /// Makes the next row that begins so the current one.
  void Search(QAbstractItemView &view, const QString &typed);

private:
  QString mTyped;
  QElapsedTimer mSinceTyped;
};

} // namespace turfdesk
