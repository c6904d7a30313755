// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "widgets/TypeAhead.h"

#include <QListWidget>

#include <string>
#include <vector>

namespace turfdesk {

/// Lists names, sorted as people do. There is nothing to do with them but to read them.
class NameList final : public QListWidget {
  Q_OBJECT

public:
  explicit NameList(QWidget *parent = nullptr);

  /// Shows these names, UTF-8, and no others. Equal and empty ones have their lines, too.
  void SetNames(std::vector<std::string> names);

  void keyboardSearch(const QString &typed) override { mTypeAhead.Search(*this, typed); }

protected:
  bool viewportEvent(QEvent *event) override;

private:
  TypeAhead mTypeAhead;
};

} // namespace turfdesk
