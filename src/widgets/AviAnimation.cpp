// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/AviAnimation.h"

#include "platform/RuntimeError.h"

#include <QPainter>

#include <cmath>
#include <memory>

namespace turfdesk {

namespace {

/// No progress animation is larger.
constexpr std::uint64_t LargestFile = std::uint64_t{16} * 1024 * 1024;

std::vector<std::uint8_t> ReadWhole(BinaryFiles &files, std::string_view path) {
  const std::unique_ptr<BinaryFile> file = files.OpenForBinaryRead(path);
  if (file == nullptr)
    throw RuntimeError(ErrorNumber::FileNotFound);
  if (file->Size() > LargestFile)
    throw RuntimeError(ErrorNumber::DeviceIo);
  std::vector<std::uint8_t> content(file->Size());
  content.resize(file->Read(content));
  return content;
}

} // namespace

AviAnimation::AviAnimation(QWidget *parent) : QWidget(parent) {
  connect(&mTimer, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void AviAnimation::SetAutoPlay(bool play) {
  mAutoPlay = play;
  PlayOrStop();
}

void AviAnimation::Open(std::string_view aviPath) {
  Close();
  mFilm = DecodeAvi(ReadWhole(*mFiles, aviPath));
  mStill = mFilm.frames.front();
  PlayOrStop();
  update();
}

void AviAnimation::Close() {
  mFilm = {};
  PlayOrStop();
  update();
}

void AviAnimation::PlayOrStop() {
  if (!mAutoPlay || mFilm.frames.empty()) {
    mTimer.stop();
    return;
  }
  mClock.start();
  mTimer.start(mFilm.frameTime);
}

const QImage &AviAnimation::CurrentFrame() const {
  if (!IsPlaying())
    return mStill;
  return mFilm.frames[static_cast<std::size_t>(mClock.elapsed() / mFilm.frameTime.count()) % mFilm.frames.size()];
}

void AviAnimation::paintEvent(QPaintEvent *) {
  const QImage &frame = CurrentFrame();
  QRect place(QPoint(0, 0), frame.size());
  place.moveCenter(rect().center());
  QPainter painter(this);
  // At a whole scale each film pixel becomes a sharp square; at others, smoothing keeps lines even.
  const qreal scale = devicePixelRatioF();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, scale != std::floor(scale));
  painter.drawImage(place, frame);
}

} // namespace turfdesk
