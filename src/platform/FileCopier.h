// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace turfdesk {

/// A copy that is complete on disk and does not bear its name yet. For copies whose place must be recorded elsewhere:
/// what stands in the way of that can then be found out before anything is replaced, and be mended afterwards.
class StagedCopy {
public:
  StagedCopy() = default;
  StagedCopy(const StagedCopy &) = delete;
  StagedCopy &operator=(const StagedCopy &) = delete;
  /// Without Place nothing is left of the copy; after Place the file stays, and what it has replaced stays set aside.
  virtual ~StagedCopy() = default;

  /// Gives the file its name. What bore the name is set aside in the same folder, under a hidden name that no later
  /// write takes for a leftover. Throws what Stage does, and then the name bears what it bore before.
  virtual void Place() = 0;
  /// After Place: is there a file that it has set aside?
  virtual bool HasReplaced() const = 0;
  /// After Place: the file stays, and what was set aside is deleted, as far as the disk lets it.
  virtual void Keep() noexcept = 0;
  /// After Place: the file goes, and what was set aside comes back. Throws RuntimeError when that does not work.
  virtual void TakeBack() = 0;
  /// The full Windows path of what was set aside, where TakeBack has failed.
  virtual std::string SetAsidePath() const = 0;
};

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

  /// Copies a file with its content and modification time, as far as that can be done without touching an existing
  /// destination. Paths are full Windows paths. The data goes to a temporary name in the destination's folder and is
  /// flushed to disk, so that the destination's name never bears half a file. Of a link in the destination's place the
  /// link itself is replaced. A destination that exists under a name of other case keeps its name.
  ///
  /// Throws RuntimeError: 53 source missing, 76 destination folder missing, 70 source and destination are one file
  /// (however named), another program writes to the source or keeps the destination from being replaced, 75 destination
  /// read-only or a folder, 61 disk full, 68 or 71 drive missing or not ready, 52 a name that no file can have, 57
  /// anything else that the device reports.
  virtual std::unique_ptr<StagedCopy> Stage(std::string_view source, std::string_view destination,
                                            const Report &report) = 0;
};

} // namespace turfdesk
