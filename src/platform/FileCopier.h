// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace turfdesk {

/// The platform's file copy.
class FileCopier {
public:
  FileCopier() = default;
  FileCopier(const FileCopier &) = delete;
  FileCopier &operator=(const FileCopier &) = delete;
  virtual ~FileCopier() = default;

  /// Told every so often how many of the file's bytes are copied; the caller moves a progress bar and lets the window
  /// repaint in it.
  using Report = std::function<void(std::uint64_t doneBytes, std::uint64_t totalBytes)>;

  /// Copies a file with its content and modification time, replacing an existing destination, of a link the link
  /// itself. Paths are full Windows paths. The data goes to a temporary name in the destination's folder, is flushed to
  /// disk and renamed into place, so that the destination's name never bears half a file; on failure the old
  /// destination stays (or is the whole new file, where only the last flush failed) and nothing else is left. A
  /// destination that exists under a name of other case keeps its name.
  ///
  /// Throws RuntimeError: 53 source missing, 76 destination folder missing, 70 source and destination are one file
  /// (however named), another program writes to the source or keeps the destination from being replaced, 75 destination
  /// read-only or a folder, 61 disk full, 68 or 71 drive missing or not ready, 52 a name that no file can have, 57
  /// anything else that the device reports.
  virtual void Copy(std::string_view source, std::string_view destination, const Report &report) = 0;
};

} // namespace turfdesk
