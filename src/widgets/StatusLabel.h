// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/StatusWindow.h"

#include <QLabel>

#include <string>

namespace turfdesk {

/// A label of a fixed number of lines for texts that hold long paths: what does not fit is left out in the middle of
/// the picture, never of the text itself, which assistive technology and the tool tip have whole.
class StatusLabel final : public QLabel, public Label {
  Q_OBJECT

public:
  explicit StatusLabel(QWidget *parent = nullptr);

  void SetLines(int lines);

  void SetCaption(std::string_view text) override;
  std::string Caption() const override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  bool event(QEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

private:
  std::string mCaption;
  int mLines = 1;
};

} // namespace turfdesk
