// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QPushButton>

namespace turfdesk {

/// A button with its picture above its caption, which breaks into lines where it is too long for one.
class PictureButton final : public QPushButton {
  Q_OBJECT

public:
  explicit PictureButton(QWidget *parent = nullptr) : QPushButton(parent) {}

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  QSize PictureSize() const;
  QSize CaptionSize() const;
};

} // namespace turfdesk
