// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/ArchiveReader.h"

#include "platform/zip/ArchiveEnd.h"
#include "platform/zip/EntryName.h"
#include "platform/zip/ExtendedTime.h"

#include <algorithm>

namespace turfdesk {

namespace {

constexpr std::size_t PieceSize = std::size_t{256} * 1024;

/// The archive's bytes for libzip, which asks for them in small portions.
class ArchiveInput final : public CallbackSource {
public:
  /// The archive is what follows the first bytes of the file.
  ArchiveInput(BinaryFile &file, std::uint64_t before, std::uint64_t size, CallbackFailure &failure)
      : CallbackSource(failure), mFile(file), mBefore(before), mSize(size), mBuffer(BufferSize) {}

protected:
  zip_int64_t Perform(zip_source_cmd_t command, void *data, zip_uint64_t length) override {
    switch (command) {
    case ZIP_SOURCE_SUPPORTS:
      return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    case ZIP_SOURCE_OPEN:
      mPosition = 0;
      return 0;
    case ZIP_SOURCE_CLOSE:
      return 0;
    case ZIP_SOURCE_STAT: {
      auto *stat = static_cast<zip_stat_t *>(data);
      stat->size = mSize;
      stat->valid |= ZIP_STAT_SIZE;
      return sizeof(*stat);
    }
    case ZIP_SOURCE_READ:
      return Read({static_cast<std::uint8_t *>(data), static_cast<std::size_t>(length)});
    case ZIP_SOURCE_SEEK:
      return Seek(data, length);
    case ZIP_SOURCE_TELL:
      return static_cast<zip_int64_t>(mPosition);
    default:
      return Refuse();
    }
  }

private:
  static constexpr std::size_t BufferSize = std::size_t{64} * 1024;

  zip_int64_t Seek(void *data, zip_uint64_t length) {
    const zip_int64_t position = zip_source_seek_compute_offset(mPosition, mSize, data, length, Error());
    if (position < 0) {
      // libzip calls this a bad argument. It comes from an archive that points beyond its end.
      zip_error_set(Error(), ZIP_ER_EOF, 0);
      return -1;
    }
    mPosition = static_cast<std::uint64_t>(position);
    return 0;
  }

  zip_int64_t Read(std::span<std::uint8_t> target) {
    if (mPosition < mBufferStart || mPosition >= mBufferStart + mBuffered)
      Refill();
    const std::size_t from = static_cast<std::size_t>(mPosition - mBufferStart);
    const std::size_t count = std::min(target.size(), mBuffered - from);
    std::copy_n(mBuffer.begin() + static_cast<std::ptrdiff_t>(from), count, target.begin());
    mPosition += count;
    return static_cast<zip_int64_t>(count);
  }

  void Refill() {
    mBuffered = 0;
    mBufferStart = mPosition;
    WhileReading([this] {
      mFile.Seek(mBefore + mPosition);
      mBuffered = mFile.Read(mBuffer);
    });
  }

  BinaryFile &mFile;
  std::uint64_t mBefore;
  std::uint64_t mSize;
  std::uint64_t mPosition = 0;
  std::vector<std::uint8_t> mBuffer;
  std::uint64_t mBufferStart = 0;
  std::size_t mBuffered = 0;
};

std::string_view NameOf(zip_t *archive, zip_uint64_t index, zip_flags_t encoding) {
  const char *name = zip_get_name(archive, index, encoding);
  if (name == nullptr)
    throw ZipFault(StatusOfLibzip(zip_get_error(archive)));
  return name;
}

/// In UTF-8, as libzip decodes it: what is neither marked as UTF-8 nor looks like it is code page 437. A NUL becomes a
/// blank. The code page has pictures for control characters, so that they no longer show in the decoded name.
EntryName DecodedName(zip_t *archive, zip_uint64_t index) {
  EntryName name = ReadEntryName(NameOf(archive, index, ZIP_FL_ENC_GUESS));
  const std::string_view raw = NameOf(archive, index, ZIP_FL_ENC_RAW);
  if (std::any_of(raw.begin(), raw.end(), [](char c) { return c > 0 && c < 0x20; }))
    name.status = ZipStatus::CannotCreateFile;
  return name;
}

enum class EntryKind { File, Folder, Neither };

/// Links, devices and the like are neither. What is said to be a folder or a pipe and has content is not: some tools
/// write a wrong mode, and those that know no modes write none. A name that ends in a separator is a folder's.
EntryKind KindOf(zip_t *archive, const zip_stat_t &stat, const EntryName &name) {
  constexpr zip_uint32_t typeMask = 0170000;
  constexpr zip_uint32_t regularFile = 0100000;
  constexpr zip_uint32_t folder = 0040000;
  constexpr zip_uint32_t pipe = 0010000;
  constexpr zip_uint32_t windowsFolder = 0x10;
  constexpr zip_uint32_t windowsLink = 0x400;
  zip_uint8_t system = 0;
  zip_uint32_t attributes = 0;
  if (name.isFolder)
    return EntryKind::Folder;
  if (zip_file_get_external_attributes(archive, stat.index, 0, &system, &attributes) != 0 ||
      (attributes & windowsLink) != 0)
    return EntryKind::Neither;
  const zip_uint32_t type = (attributes >> 16) & typeMask;
  if (stat.size == 0 && (type == folder || (type == 0 && (attributes & windowsFolder) != 0)))
    return EntryKind::Folder;
  const bool isFile = type == 0 || type == regularFile || (type == pipe && stat.size > 0);
  return isFile ? EntryKind::File : EntryKind::Neither;
}

/// Could the content be read?
bool IsReadable(const zip_stat_t &stat) {
  return stat.encryption_method == ZIP_EM_NONE &&
         (stat.comp_method == ZIP_CM_STORE || stat.comp_method == ZIP_CM_DEFLATE);
}

} // namespace

ArchiveReader::ArchiveReader(BinaryFiles &files, std::string_view path) {
  mFile = WhileReading([&] { return files.OpenForBinaryRead(path); });
  if (!mFile)
    throw ZipFault(ZipStatus::ArchiveMissing);
  Open();
  ReadDirectory();
}

ArchiveReader::~ArchiveReader() = default;

void ArchiveReader::Open() {
  const std::uint64_t size = WhileReading([this] { return mFile->Size(); });
  if (size == 0)
    throw ZipFault(ZipStatus::ArchiveEmpty);
  const std::uint64_t before = WhileReading([this] { return BytesBeforeArchive(*mFile); });
  mSource = std::make_unique<ArchiveInput>(*mFile, before, size - before, mFailure);
  SourceHandle source = mSource->MakeSource();
  ZipError error;
  mArchive.reset(zip_open_from_source(source.get(), ZIP_RDONLY, error.Get()));
  if (mArchive) {
    static_cast<void>(source.release());
    return;
  }
  if (!mFailure.cause && zip_error_code_zip(error.Get()) == ZIP_ER_NOZIP)
    throw ZipFault(WhileReading([this] { return StatusWithoutDirectory(*mFile); }));
  mFailure.Throw(error.Get());
}

void ArchiveReader::ReadDirectory() {
  const zip_int64_t count = zip_get_num_entries(mArchive.get(), 0);
  for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
    zip_stat_t stat;
    if (zip_stat_index(mArchive.get(), index, 0, &stat) != 0)
      throw ZipFault(StatusOfLibzip(zip_get_error(mArchive.get())));
    EntryName name = DecodedName(mArchive.get(), index);
    const EntryKind kind = KindOf(mArchive.get(), stat, name);
    if (kind == EntryKind::Folder || name.isRecord)
      continue;
    ZipStatus status = name.status;
    if (status == ZipStatus::Done && kind == EntryKind::Neither)
      status = ZipStatus::CannotCreateFile;
    if (status == ZipStatus::Done && !IsReadable(stat))
      status = ZipStatus::UnsupportedVersion;
    const std::int64_t modified = ReadExtendedTime(mArchive.get(), index).value_or(stat.mtime);
    mEntries.push_back(
        {index, std::move(name.text), name.status == ZipStatus::Done, status, stat.size, stat.crc, modified});
  }
  if (mEntries.empty())
    throw ZipFault(ZipStatus::ArchiveEmpty);
}

void ArchiveReader::Read(const ArchiveEntry &entry, const Sink &sink) {
  const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> file(zip_fopen_index(mArchive.get(), entry.index, 0),
                                                                &zip_fclose);
  if (!file)
    mFailure.Throw(zip_get_error(mArchive.get()));
  mBuffer.resize(PieceSize);
  const auto readSome = [&](std::uint64_t most) {
    const zip_int64_t count = zip_fread(file.get(), mBuffer.data(), std::min<std::uint64_t>(most, mBuffer.size()));
    if (count < 0)
      mFailure.Throw(zip_file_get_error(file.get()));
    return static_cast<std::size_t>(count);
  };
  std::uint64_t left = entry.size;
  while (left > 0) {
    const std::size_t count = readSome(left);
    if (count == 0)
      throw ZipFault(ZipStatus::BadStructure);
    sink(std::span(mBuffer).first(count));
    left -= count;
  }
  // Only a read past the end lets libzip compare the checksum; an empty entry without data it does not compare at all.
  if (readSome(1) != 0 || (entry.size == 0 && entry.crc != 0))
    throw ZipFault(ZipStatus::BadStructure);
}

} // namespace turfdesk
