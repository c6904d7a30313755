// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/StagedFile.h"
#include "platform/SweepTimes.h"
#include "platform/windows/FileFacts.h"
#include "platform/windows/NewFolders.h"
#include "platform/windows/SystemHandle.h"

#include <cstdint>
#include <optional>
#include <string>

namespace turfdesk {

/// Until Commit the file has one of StagedFileNames and is marked to be deleted when it is closed, so that nothing of
/// it is left behind even when the program is killed. What a failure of the machine has left under such a name is
/// removed by the next that writes in the folder.
class WindowsStagedFile final : public StagedFile {
public:
  /// Throws what StagedFiles::Create does, and 70 when another program has the destination open.
  WindowsStagedFile(std::string_view destination, bool makeFolders, SweepTimes<std::wstring> &sweeps);
  ~WindowsStagedFile() override;

  void Write(std::span<const std::uint8_t> data) override;
  void Seek(std::uint64_t offset) override { mPosition = offset; }
  std::uint64_t Tell() override { return mPosition; }
  void SetModificationTime(std::int64_t seconds) override;
  void Commit(bool flush) override { Finish(flush, false); }

  // The steps of a StagedCopy.
  void Place() { Finish(true, true); }
  bool HasReplaced() const { return !mSetAsidePath.empty(); }
  void Keep() noexcept;
  void TakeBack();
  const std::wstring &SetAsidePath() const { return mSetAsidePath; }

  /// SetModificationTime in the system's units of 100 ns since 1601.
  void KeepTime(std::uint64_t ticks) { mModified = ticks; }
  /// So that a disk that is too full is found out before the work is done. Only a disk that can tell is asked.
  void Reserve(std::uint64_t bytes);
  /// Waits until the disk has what was written so far.
  void Flush();

private:
  void Finish(bool flush, bool setAside);
  void SetAside();
  std::wstring Path() const { return mFolder + L"\\" + mName; }
  void OpenTemporary();
  void SetTime();
  /// Is there a file to be replaced? Throws when that may not be, or somebody uses it.
  bool CheckReplaceable() const;
  std::uint32_t Rename();

  std::wstring mFolder;
  std::wstring mName;
  NewFolders mNewFolders;
  SystemHandle mFile;
  bool mIsMarked = false;
  std::wstring mTemporaryPath;
  std::wstring mSetAsidePath;
  /// Of the file since it has its own name.
  FileFacts mOwnFacts;
  std::uint64_t mPosition = 0;
  std::optional<std::uint64_t> mModified;
};

class WindowsStagedFiles final : public StagedFiles {
public:
  std::unique_ptr<StagedFile> Create(std::string_view destination, bool makeFolders) override;
  bool IsSameFile(std::string_view first, std::string_view second) override;
  std::uint64_t FreeBytes(std::string_view folder) override;

private:
  SweepTimes<std::wstring> mSweeps;
};

} // namespace turfdesk
