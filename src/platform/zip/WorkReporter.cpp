// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/WorkReporter.h"

#include <algorithm>

namespace turfdesk {

namespace {

constexpr std::chrono::milliseconds RepaintInterval{50};

template <typename Body> void CallHandler(Body body) {
  try {
    body();
  } catch (...) {
    throw HandlerException{std::current_exception()};
  }
}

} // namespace

void WorkReporter::Raise(const ZipLayer::EntryEvent &event, const std::string &name) const {
  if (event)
    CallHandler([&] { event(name); });
}

void WorkReporter::Begin(std::uint64_t totalBytes) {
  mTotal = totalBytes;
  mDone = 0;
  if (mLayer.WorkProgress != nullptr)
    CallHandler([&] { mLayer.WorkProgress->Begin(totalBytes); });
}

void WorkReporter::Advance(std::uint64_t bytes) {
  mDone = std::min(mTotal, mDone + bytes);
  if (mLayer.WorkProgress != nullptr)
    CallHandler([&] { mLayer.WorkProgress->SetPosition(mDone); });
  const auto now = std::chrono::steady_clock::now();
  if (!mLayer.Repaint || now < mNextRepaint)
    return;
  CallHandler([&] { mLayer.Repaint(); });
  mNextRepaint = now + RepaintInterval;
}

} // namespace turfdesk
