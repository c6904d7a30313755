// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Progress.h"

#include <QProgressBar>

namespace turfdesk {

/// A progress bar whose positions are bytes, or a power of two of them where the total is beyond the bar's range.
class ByteProgressBar final : public QProgressBar, public Progress {
  Q_OBJECT

public:
  explicit ByteProgressBar(QWidget *parent = nullptr) : QProgressBar(parent) {}

  void Begin(std::uint64_t totalBytes) override;
  void SetPosition(std::uint64_t doneBytes) override;

private:
  int mShift = 0;
};

} // namespace turfdesk
