// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/ArchiveWriter.h"

#include "platform/CaseFold.h"
#include "platform/PathText.h"
#include "platform/zip/BlockDeflater.h"
#include "platform/zip/CallbackSource.h"
#include "platform/zip/EntrySelection.h"
#include "platform/zip/ExtendedTime.h"
#include "platform/zip/WorkReporter.h"
#include "platform/zip/ZipStatus.h"

#include <algorithm>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace turfdesk {

namespace {

struct SourceFile {
  std::string path;
  std::string name;
  std::uint64_t size = 0;
  std::int64_t modified = 0;
  bool deflated = true;
};

/// What the entries of one archive share while it is written.
struct WriteContext {
  BinaryFiles &files;
  const ZipLayer &layer;
  WorkReporter &reporter;
  BlockDeflater &deflater;
  CallbackFailure &failure;
};

std::unique_ptr<BinaryFile> OpenSource(BinaryFiles &files, const std::string &path) {
  auto file = WhileReading([&] { return files.OpenForBinaryRead(path); });
  if (!file)
    throw ZipFault(ZipStatus::ReadFailed);
  return file;
}

/// Formats that are dense already: deflating them takes time and gains nothing.
bool IsCompressedAlready(std::string_view name) {
  const std::string folded = FoldCase(name);
  return folded.ends_with(".mp3") || folded.ends_with(".mpg") || folded.ends_with(".avi");
}

/// The file of one entry, compressed while libzip reads it.
class EntryInput final : public CallbackSource {
public:
  EntryInput(const SourceFile &source, const WriteContext &context)
      : CallbackSource(context.failure), mSource(source), mContext(context) {}

protected:
  zip_int64_t Perform(zip_source_cmd_t command, void *data, zip_uint64_t length) override {
    switch (command) {
    case ZIP_SOURCE_SUPPORTS:
      return ZIP_SOURCE_SUPPORTS_READABLE;
    case ZIP_SOURCE_OPEN:
      Open();
      return 0;
    case ZIP_SOURCE_READ:
      return static_cast<zip_int64_t>(Read({static_cast<std::uint8_t *>(data), static_cast<std::size_t>(length)}));
    case ZIP_SOURCE_CLOSE:
      mFile.reset();
      return 0;
    case ZIP_SOURCE_STAT:
      return Stat(*static_cast<zip_stat_t *>(data));
    default:
      return Refuse();
    }
  }

private:
  void Open() {
    mContext.reporter.Raise(mContext.layer.ZipPreprocessingFile, mSource.path);
    mFile = OpenSource(mContext.files, mSource.path);
    mContext.reporter.Raise(mContext.layer.ZippingFile, mSource.path);
    if (mSource.deflated)
      mContext.deflater.Begin([this](std::span<std::uint8_t> buffer) { return ReadSource(buffer); });
  }

  std::size_t Read(std::span<std::uint8_t> buffer) {
    const std::size_t count = mSource.deflated ? mContext.deflater.Take(buffer) : ReadSource(buffer);
    mComplete = count == 0;
    return count;
  }

  /// A file that is no longer as long as it was is being changed by somebody: what was read of it may fit together or
  /// not.
  std::size_t ReadSource(std::span<std::uint8_t> buffer) {
    const std::size_t count = WhileReading([&] { return mFile->Read(buffer); });
    mRead += count;
    if (mRead > mSource.size || (count < buffer.size() && mRead < mSource.size))
      throw ZipFault(ZipStatus::ReadFailed);
    mContext.reporter.Advance(count);
    return count;
  }

  zip_int64_t Stat(zip_stat_t &stat) const {
    stat.size = mSource.size;
    stat.mtime = static_cast<time_t>(mSource.modified);
    stat.comp_method = mSource.deflated ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
    stat.valid |= ZIP_STAT_SIZE | ZIP_STAT_MTIME | ZIP_STAT_COMP_METHOD;
    if (mSource.deflated && mComplete) {
      stat.crc = mContext.deflater.Crc();
      stat.valid |= ZIP_STAT_CRC;
    }
    return sizeof(stat);
  }

  const SourceFile &mSource;
  const WriteContext &mContext;
  std::unique_ptr<BinaryFile> mFile;
  std::uint64_t mRead = 0;
  bool mComplete = false;
};

/// Takes the archive's bytes from libzip. Whether the file gets its name is not libzip's business.
class ArchiveOutput final : public CallbackSource {
public:
  ArchiveOutput(StagedFile &staged, CallbackFailure &failure) : CallbackSource(failure), mStaged(staged) {}

protected:
  zip_int64_t Perform(zip_source_cmd_t command, void *data, zip_uint64_t length) override {
    switch (command) {
    case ZIP_SOURCE_SUPPORTS:
      return ZIP_SOURCE_SUPPORTS_WRITABLE;
    case ZIP_SOURCE_OPEN:
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_BEGIN_WRITE:
    case ZIP_SOURCE_COMMIT_WRITE:
    case ZIP_SOURCE_ROLLBACK_WRITE:
      return 0;
    case ZIP_SOURCE_STAT: {
      auto *stat = static_cast<zip_stat_t *>(data);
      stat->size = 0;
      stat->valid |= ZIP_STAT_SIZE;
      return sizeof(*stat);
    }
    case ZIP_SOURCE_WRITE:
      return Write({static_cast<const std::uint8_t *>(data), static_cast<std::size_t>(length)});
    case ZIP_SOURCE_SEEK_WRITE:
      return Seek(data, length);
    case ZIP_SOURCE_TELL_WRITE:
      return WhileWriting([this] { return static_cast<zip_int64_t>(mStaged.Tell()); });
    default:
      return Refuse();
    }
  }

private:
  zip_int64_t Write(std::span<const std::uint8_t> bytes) {
    WhileWriting([&] {
      mStaged.Write(bytes);
      mSize = std::max(mSize, mStaged.Tell());
    });
    return static_cast<zip_int64_t>(bytes.size());
  }

  zip_int64_t Seek(void *data, zip_uint64_t length) {
    const std::uint64_t position = WhileWriting([this] { return mStaged.Tell(); });
    const zip_int64_t target = zip_source_seek_compute_offset(position, mSize, data, length, Error());
    if (target < 0)
      return -1;
    WhileWriting([&] { mStaged.Seek(static_cast<std::uint64_t>(target)); });
    return 0;
  }

  StagedFile &mStaged;
  std::uint64_t mSize = 0;
};

/// Looks at a source before any is written. Whoever is told of a fault sees the file's name then.
template <typename Look> void LookAtSource(const ZipLayer &layer, const std::string &path, Look look) {
  try {
    look();
  } catch (const ZipFault &) {
    WorkReporter(layer).Raise(layer.ZipPreprocessingFile, path);
    throw;
  }
}

/// The sources under their bare names, a file that is named twice once. All is refused before any file is touched when
/// two of them would have one name, or the archive would take the place of a file that goes into it.
std::vector<SourceFile> NameSources(StagedFiles &stagedFiles, const ZipLayer &layer) {
  std::vector<SourceFile> sources;
  std::map<std::string, std::string> pathsByName;
  for (const std::string &path : SplitList(layer.FilesToProcess))
    LookAtSource(layer, path, [&] {
      if (stagedFiles.IsSameFile(path, layer.ZipFilename))
        throw ZipFault(ZipStatus::BadCall);
      SourceFile source{path, std::string(FilePartOf(path))};
      source.deflated = !IsCompressedAlready(source.name);
      const auto [known, isNew] = pathsByName.emplace(FoldCase(source.name), path);
      if (isNew)
        sources.push_back(std::move(source));
      else if (!stagedFiles.IsSameFile(known->second, path))
        throw ZipFault(ZipStatus::NameRepeated);
    });
  if (sources.empty())
    throw ZipFault(ZipStatus::NothingToDo);
  return sources;
}

/// Fills in size and time of each source. Gives the sum of the sizes.
std::uint64_t InspectSources(BinaryFiles &files, const ZipLayer &layer, std::vector<SourceFile> &sources) {
  std::uint64_t total = 0;
  for (SourceFile &source : sources) {
    LookAtSource(layer, source.path, [&] {
      const auto file = OpenSource(files, source.path);
      WhileReading([&] {
        source.size = file->Size();
        source.modified = file->ModificationTime();
      });
    });
    total += source.size;
  }
  return total;
}

void AddEntry(zip_t *archive, EntryInput &input, const SourceFile &source) {
  SourceHandle handle = input.MakeSource();
  const zip_int64_t index = zip_file_add(archive, source.name.c_str(), handle.get(), ZIP_FL_ENC_UTF_8);
  if (index < 0)
    throw ZipFault(StatusOfLibzip(zip_get_error(archive)));
  static_cast<void>(handle.release());
  const auto entry = static_cast<zip_uint64_t>(index);
  // The data arrives compressed, so that libzip has no use for a level.
  constexpr zip_uint32_t levelOfLibzip = 0;
  const zip_int32_t method = source.deflated ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
  if (zip_set_file_compression(archive, entry, method, levelOfLibzip) != 0 ||
      !WriteExtendedTime(archive, entry, source.modified))
    throw ZipFault(StatusOfLibzip(zip_get_error(archive)));
}

void WriteEntries(StagedFile &staged, const std::vector<SourceFile> &sources, const WriteContext &context) {
  ArchiveOutput output(staged, context.failure);
  // A deque, because libzip keeps the addresses until the archive is closed.
  std::deque<EntryInput> inputs;
  SourceHandle handle = output.MakeSource();
  ZipError error;
  ArchiveHandle archive(zip_open_from_source(handle.get(), ZIP_CREATE | ZIP_TRUNCATE, error.Get()));
  if (!archive)
    context.failure.Throw(error.Get());
  static_cast<void>(handle.release());
  for (const SourceFile &source : sources)
    AddEntry(archive.get(), inputs.emplace_back(source, context), source);
  if (zip_close(archive.get()) != 0)
    context.failure.Throw(zip_get_error(archive.get()));
  static_cast<void>(archive.release());
}

} // namespace

void WriteArchive(BinaryFiles &files, StagedFiles &stagedFiles, const ZipLayer &layer) {
  std::vector<SourceFile> sources = NameSources(stagedFiles, layer);
  const std::uint64_t total = InspectSources(files, layer, sources);
  const auto staged = WhileWriting([&] { return stagedFiles.Create(layer.ZipFilename, false); });
  BlockDeflater deflater;
  CallbackFailure failure;
  WorkReporter reporter(layer);
  reporter.Begin(total);
  WriteEntries(*staged, sources, {files, layer, reporter, deflater, failure});
  WhileWriting([&] { staged->Commit(true); });
}

} // namespace turfdesk
