// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QDialog>

namespace turfdesk {

/// Says that the chosen folder holds no course.
class dlgInvalidDir final : public QDialog {
  Q_OBJECT

public:
  explicit dlgInvalidDir(QWidget *parent);
};

} // namespace turfdesk
