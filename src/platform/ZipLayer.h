// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Progress.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace turfdesk {

/// The zip layer: lists, extracts and writes one archive. Members are set, then a method is called; the events arrive
/// during that call, on the calling thread. Paths are full Windows paths in UTF-8.
///
/// Each method gives a 16-bit status: 0 for success, else a number of GetZipStatusText (docs/zip-status.md tells which
/// fault gives which).
/// What a handler throws goes on to the caller of the method, after the work has been dropped and cleaned up.
class ZipLayer {
public:
  ZipLayer() = default;
  ZipLayer(const ZipLayer &) = delete;
  ZipLayer &operator=(const ZipLayer &) = delete;
  virtual ~ZipLayer() = default;

  /// The archive's path.
  std::string ZipFilename;
  /// The existing folder into which Unzip puts the files.
  std::string UnzipToFolder;
  /// What to work on, each entry followed by one carriage return: for Unzip and ListZipContents patterns or names of
  /// entries ("*.*" selects every file; * any text, ? one character; case does not count), for Zip full source paths.
  std::string FilesToProcess;

  /// Called with the entry's name, backslashes between folders: exactly the name, relative to UnzipToFolder, under
  /// which Unzip puts the file.
  using EntryEvent = std::function<void(const std::string &name)>;

  EntryEvent ListingFile;
  EntryEvent UnzipPreprocessingFile;
  /// Both are called with the source's full path: the first also for one that keeps the archive from being written,
  /// before a file is opened to be compressed, the second then.
  EntryEvent ZipPreprocessingFile;
  EntryEvent ZippingFile;
  /// Where to tell how far Unzip or Zip has come, in uncompressed bytes over all selected files. Null: nowhere.
  Progress *WorkProgress = nullptr;
  /// Called every so often between events, so that windows repaint. Empty: never.
  std::function<void()> Repaint;

  /// Raises ListingFile for each file that FilesToProcess selects, in archive order. Those whose names no file can have
  /// are passed over.
  virtual std::int16_t ListZipContents() = 0;
  /// Extracts the selected files, in archive order, raising UnzipPreprocessingFile before each. Where one of them is
  /// hostile or unusable all are refused, before the first event; what is not selected is not judged. A file of that
  /// name that lies in the folder is replaced. A failed file leaves nothing of itself; those before it stay.
  virtual std::int16_t Unzip(std::int16_t unused) = 0;
  /// Writes the archive. It appears under its name when it is complete and flushed, replacing what stood there; on
  /// any failure what stood there stays untouched and nothing else is left, except that a failure of the last flush
  /// leaves the whole new archive.
  virtual std::int16_t Zip(std::int16_t unused) = 0;
};

} // namespace turfdesk
