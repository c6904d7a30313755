// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QDialog>

namespace turfdesk {

/// Says that the converter is at work. The user cannot close it; it goes when it is hidden.
class dlgWaitConvert final : public QDialog {
  Q_OBJECT

public:
  explicit dlgWaitConvert(QWidget *parent);

  void done(int) override {}
};

} // namespace turfdesk
