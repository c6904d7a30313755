// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/StatusWindow.h"
#include "widgets/AviFilm.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

namespace turfdesk {

/// Plays a film in the middle of its area, one film pixel to one logical pixel. The film's place follows the clock, so
/// that it moves evenly however seldom work lets the window repaint. A film that was closed leaves its first frame.
class AviAnimation final : public QWidget, public Animation {
  Q_OBJECT

public:
  explicit AviAnimation(QWidget *parent = nullptr);

  /// Where films are read. files must outlive the control.
  void SetFiles(BinaryFiles &files) { mFiles = &files; }

  void SetAutoPlay(bool play) override;
  void Open(std::string_view aviPath) override;
  void Close() override;

  bool IsPlaying() const { return mTimer.isActive(); }

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  void PlayOrStop();
  const QImage &CurrentFrame() const;

  BinaryFiles *mFiles = nullptr;
  AviFilm mFilm;
  QImage mStill;
  QTimer mTimer;
  QElapsedTimer mClock;
  bool mAutoPlay = false;
};

} // namespace turfdesk
