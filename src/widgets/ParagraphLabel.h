// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QLabel>

namespace turfdesk {

/// A label whose text breaks into lines by itself, and into paragraphs where it has a long run of blanks. The text
/// itself keeps its blanks.
class ParagraphLabel final : public QLabel {
  Q_OBJECT

public:
  explicit ParagraphLabel(QWidget *parent = nullptr) : QLabel(parent) {}

  /// How many characters of usual width a line has room for. On a narrow screen it has less.
  void SetColumns(int columns);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  QString Paragraphs() const;

  int mColumns = 40;
};

} // namespace turfdesk
