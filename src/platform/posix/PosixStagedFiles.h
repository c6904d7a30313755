// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/StagedFile.h"
#include "platform/SweepTimes.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Leftovers.h"
#include "platform/posix/PathMap.h"

#include <sys/stat.h>

#include <optional>
#include <string>
#include <vector>

namespace turfdesk {

/// Where a file is to appear: what stands there under another case of the name is what is replaced. A link is replaced
/// itself. Whatever it leads to is not ours to write: in a folder that everybody writes in, anybody may have made it.
struct Destination {
  std::string folder; ///< host path
  std::string name;
  std::optional<struct stat> existing; ///< of a link, its own

  std::string Path() const { return folder + "/" + name; }
};

/// Throws RuntimeError 52, 68, 71 or 76 as StagedFiles::Create does.
Destination FindDestination(const PathMap &paths, std::string_view windowsPath, bool missingFolders);

/// Folders made for a file. Those that are still empty go with the object.
class NewFolders {
public:
  NewFolders() = default;
  NewFolders(const NewFolders &) = delete;
  NewFolders &operator=(const NewFolders &) = delete;
  ~NewFolders();

  /// Makes a host folder with its parents where they are missing. Throws RuntimeError when that does not work.
  void Make(const std::string &folder);

private:
  std::vector<std::string> mFolders;
};

/// Until Commit the file bears no name at all where the disk can do that, so that nothing of it is left behind even
/// when the program is killed. Elsewhere, and for a moment within Commit, its name is one of StagedFileNames. What a
/// killed program has left under such a name is removed by the next that writes in the folder.
class PosixStagedFile final : public StagedFile {
public:
  /// mode: the permission bits of a new file, less those of the user's mask; those of an existing file of the
  /// same user are kept.
  PosixStagedFile(Destination destination, bool makeFolders, mode_t mode, SweepTimes<std::string> &sweeps);
  ~PosixStagedFile() override;

  void Write(std::span<const std::uint8_t> data) override;
  void Seek(std::uint64_t offset) override { mPosition = offset; }
  std::uint64_t Tell() override { return mPosition; }
  void SetModificationTime(std::int64_t seconds) override { KeepTime({seconds, 0}); }
  void Commit(bool flush) override { Finish(flush, false); }

  // The steps of a StagedCopy. Flush is what Place does first, for those who want it done before.
  void Flush();
  void Place() { Finish(true, true); }
  bool HasReplaced() const { return !mSetAsideName.empty(); }
  void Keep() noexcept;
  void TakeBack();
  /// The host path of what was set aside.
  std::string SetAsidePath() const { return mDestination.folder + "/" + mSetAsideName; }

  /// SetModificationTime to the nanosecond.
  void KeepTime(const timespec &time) { mModified = time; }
  /// The open file, for those who fill it by other means than Write.
  int FileNumber() const { return mFile.Number(); }

private:
  void Finish(bool flush, bool setAside);
  void SetAside();
  void OpenTemporary(mode_t mode);
  void SetAttributes() const;
  void GiveTemporaryName();
  void CheckReplaceable() const;
  void FlushFolder();

  Destination mDestination;
  NewFolders mNewFolders;
  Descriptor mFolder;
  Descriptor mFile;
  std::string mTemporaryName; ///< "" while the file has none
  Leftover mLeftover;
  std::string mSetAsideName; ///< "" while nothing is set aside
  bool mIsFlushed = false;
  std::uint64_t mPosition = 0;
  std::optional<timespec> mModified;
};

class PosixStagedFiles final : public StagedFiles {
public:
  explicit PosixStagedFiles(const PathMap &paths) : mPaths(paths) {}

  std::unique_ptr<StagedFile> Create(std::string_view destination, bool makeFolders) override;
  bool IsSameFile(std::string_view first, std::string_view second) override;
  std::uint64_t FreeBytes(std::string_view folder) override;

private:
  const PathMap &mPaths;
  SweepTimes<std::string> mSweeps;
};

} // namespace turfdesk
