// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ZipLayer.h"

#include <chrono>
#include <exception>

namespace turfdesk {

/// An exception of the caller's own handlers on its way out of the zip layer. No std::exception, so that nothing takes
/// it for a fault of the archive.
struct HandlerException {
  std::exception_ptr cause;
};

/// Tells the caller of the zip layer how the work goes. What its handlers throw comes out as a HandlerException.
class WorkReporter {
public:
  /// The layer must outlive the reporter.
  explicit WorkReporter(const ZipLayer &layer) : mLayer(layer) {}

  void Raise(const ZipLayer::EntryEvent &event, const std::string &name) const;
  void Begin(std::uint64_t totalBytes);
  /// So many more bytes are done. Lets the windows repaint when the last time was some while ago.
  void Advance(std::uint64_t bytes);

private:
  const ZipLayer &mLayer;
  std::uint64_t mTotal = 0;
  std::uint64_t mDone = 0;
  std::chrono::steady_clock::time_point mNextRepaint;
};

} // namespace turfdesk
