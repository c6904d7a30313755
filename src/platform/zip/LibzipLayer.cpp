// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/LibzipLayer.h"

#include "platform/zip/ArchiveReader.h"
#include "platform/zip/ArchiveWriter.h"
#include "platform/zip/EntryName.h"
#include "platform/zip/EntrySelection.h"
#include "platform/zip/WorkReporter.h"
#include "platform/zip/ZipStatus.h"

#include <algorithm>
#include <limits>
#include <new>
#include <system_error>

namespace turfdesk {

namespace {

class LibzipLayer final : public ZipLayer {
public:
  LibzipLayer(BinaryFiles &files, StagedFiles &stagedFiles) : mFiles(files), mStagedFiles(stagedFiles) {}

  std::int16_t ListZipContents() override {
    return Run([this] { List(); });
  }
  std::int16_t Unzip(std::int16_t) override {
    return Run([this] { Extract(); });
  }
  std::int16_t Zip(std::int16_t) override {
    return Run([this] { WriteArchive(mFiles, mStagedFiles, *this); });
  }

private:
  template <typename Work> static std::int16_t Run(Work work);

  std::vector<ArchiveEntry> SelectedEntries(const ArchiveReader &archive) const;
  void List();
  void Extract();
  void ExtractEntry(ArchiveReader &archive, const ArchiveEntry &entry, WorkReporter &reporter);

  BinaryFiles &mFiles;
  StagedFiles &mStagedFiles;
};

/// Turns everything that ends the work early into a status, but for what the caller's own handlers throw: that goes on
/// to the caller, after all has been cleaned up.
template <typename Work> std::int16_t LibzipLayer::Run(Work work) {
  ZipStatus status = ZipStatus::Done;
  try {
    work();
  } catch (const HandlerException &exception) {
    std::rethrow_exception(exception.cause);
  } catch (const ZipFault &fault) {
    status = fault.Status();
  } catch (const std::bad_alloc &) {
    status = ZipStatus::NotEnoughMemory;
  } catch (const std::system_error &) {
    // Only threads fail so, and they for want of memory.
    status = ZipStatus::NotEnoughMemory;
  } catch (const std::exception &) {
    status = ZipStatus::InternalLogic;
  }
  return static_cast<std::int16_t>(status);
}

std::vector<ArchiveEntry> LibzipLayer::SelectedEntries(const ArchiveReader &archive) const {
  std::vector<ArchiveEntry> selected = EntrySelection(FilesToProcess).From(archive.Entries());
  if (selected.empty())
    throw ZipFault(ZipStatus::NothingToDo);
  return selected;
}

void LibzipLayer::List() {
  const ArchiveReader archive(mFiles, ZipFilename);
  const WorkReporter reporter(*this);
  for (const ArchiveEntry &entry : SelectedEntries(archive))
    if (entry.isNameUsable)
      reporter.Raise(ListingFile, entry.name);
}

/// What is not extracted is not judged: it can do no harm.
void CheckSelected(const std::vector<ArchiveEntry> &entries) {
  std::vector<std::string> names;
  for (const ArchiveEntry &entry : entries) {
    if (entry.status != ZipStatus::Done)
      throw ZipFault(entry.status);
    names.push_back(entry.name);
  }
  if (NamesClash(names))
    throw ZipFault(ZipStatus::NameRepeated);
}

std::uint64_t SumOfSizes(const std::vector<ArchiveEntry> &entries) {
  std::uint64_t sum = 0;
  for (const ArchiveEntry &entry : entries) {
    const std::uint64_t room = std::numeric_limits<std::uint64_t>::max() - sum;
    sum += std::min(room, entry.size);
  }
  return sum;
}

void LibzipLayer::Extract() {
  ArchiveReader archive(mFiles, ZipFilename);
  const std::vector<ArchiveEntry> selected = SelectedEntries(archive);
  CheckSelected(selected);
  const std::uint64_t total = SumOfSizes(selected);
  if (WhileWriting([this] { return mStagedFiles.FreeBytes(UnzipToFolder); }) < total)
    throw ZipFault(ZipStatus::DiskFull);
  WorkReporter reporter(*this);
  reporter.Begin(total);
  for (const ArchiveEntry &entry : selected)
    ExtractEntry(archive, entry, reporter);
}

void LibzipLayer::ExtractEntry(ArchiveReader &archive, const ArchiveEntry &entry, WorkReporter &reporter) {
  reporter.Raise(UnzipPreprocessingFile, entry.name);
  const bool hasBackslash = UnzipToFolder.ends_with('\\');
  const std::string path = UnzipToFolder + (hasBackslash ? "" : "\\") + entry.name;
  const auto staged = WhileWriting([&] { return mStagedFiles.Create(path, true); });
  archive.Read(entry, [&](std::span<const std::uint8_t> piece) {
    WhileWriting([&] { staged->Write(piece); });
    reporter.Advance(piece.size());
  });
  // Extracted files are copied to their place and deleted again: only that copy is worth the wait for the disk.
  WhileWriting([&] {
    staged->SetModificationTime(entry.modified);
    staged->Commit(false);
  });
}

} // namespace

std::unique_ptr<ZipLayer> MakeLibzipLayer(BinaryFiles &files, StagedFiles &stagedFiles) {
  return std::make_unique<LibzipLayer>(files, stagedFiles);
}

} // namespace turfdesk
