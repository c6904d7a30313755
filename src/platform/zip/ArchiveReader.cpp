// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/ArchiveReader.h"

#include "platform/zip/EntryName.h"
#include "platform/zip/ExtendedTime.h"
#include "platform/zip/ZipStatus.h"

#include <algorithm>
#include <array>

namespace turfdesk {

namespace {

constexpr std::size_t PieceSize = std::size_t{256} * 1024;

/// The archive's bytes for libzip, which asks for them in small portions.
class ArchiveInput final : public CallbackSource {
public:
  ArchiveInput(BinaryFile &file, std::uint64_t size, CallbackFailure &failure)
      : CallbackSource(failure), mFile(file), mSize(size), mBuffer(BufferSize) {}

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
      mFile.Seek(mPosition);
      mBuffered = mFile.Read(mBuffer);
    });
  }

  BinaryFile &mFile;
  std::uint64_t mSize;
  std::uint64_t mPosition = 0;
  std::vector<std::uint8_t> mBuffer;
  std::uint64_t mBufferStart = 0;
  std::size_t mBuffered = 0;
};

bool Contains(std::span<const std::uint8_t> bytes, std::string_view text) {
  return std::search(bytes.begin(), bytes.end(), text.begin(), text.end()) != bytes.end();
}

/// Tells apart the files in which libzip finds no archive: those with an end record, whose directory is damaged; those
/// that begin like an archive, which are cut short or have more disks; and those that are something else.
ZipStatus StatusWithoutDirectory(BinaryFile &file, std::uint64_t size) {
  constexpr std::size_t endRecordSize = 22;
  constexpr std::size_t longestComment = 65535;
  constexpr std::size_t signatureSize = 4;
  std::vector<std::uint8_t> tail(std::min<std::uint64_t>(size, endRecordSize + longestComment));
  std::array<std::uint8_t, signatureSize> start = {};
  WhileReading([&] {
    file.Seek(size - tail.size());
    tail.resize(file.Read(tail));
    file.Seek(0);
    file.Read(start);
  });
  const std::size_t rest = endRecordSize - signatureSize;
  tail.resize(tail.size() - std::min(tail.size(), rest));
  if (Contains(tail, "PK\x05\x06"))
    return ZipStatus::BadStructure;
  if (Contains(start, "PK\x03\x04"))
    return ZipStatus::EndOfFile;
  return Contains(start, "PK\x07\x08") ? ZipStatus::MultipleDisks : ZipStatus::NotAnArchive;
}

/// An entry's name in UTF-8, backslashes between folders, as libzip decodes it: what is neither marked as UTF-8 nor
/// looks like it is code page 437. A NUL becomes a blank.
std::string DecodedName(zip_t *archive, zip_uint64_t index) {
  const char *raw = zip_get_name(archive, index, ZIP_FL_ENC_RAW);
  const char *decoded = zip_get_name(archive, index, ZIP_FL_ENC_GUESS);
  if (raw == nullptr || decoded == nullptr)
    throw ZipFault(StatusOfLibzip(zip_get_error(archive)));
  // The code page has pictures for control characters, so that they no longer show in the decoded name.
  const std::string_view bytes = raw;
  if (std::any_of(bytes.begin(), bytes.end(), [](char c) { return c > 0 && c < 0x20; }))
    throw ZipFault(ZipStatus::CannotCreateFile);
  std::string name = decoded;
  std::replace(name.begin(), name.end(), '/', '\\');
  return name;
}

/// Is the entry what its name says: a file, or a folder where the name ends in a separator? Links, devices and the
/// like are neither. A folder may be marked as a file: tools that know no modes do so.
bool HasExpectedType(zip_t *archive, zip_uint64_t index, bool isFolder) {
  constexpr zip_uint32_t typeMask = 0170000;
  constexpr zip_uint32_t regularFile = 0100000;
  constexpr zip_uint32_t folder = 0040000;
  constexpr zip_uint32_t windowsLink = 0x400;
  zip_uint8_t system = 0;
  zip_uint32_t attributes = 0;
  if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0)
    return false;
  const zip_uint32_t type = (attributes >> 16) & typeMask;
  return (attributes & windowsLink) == 0 && (type == 0 || type == regularFile || (isFolder && type == folder));
}

void CheckMethod(const zip_stat_t &stat) {
  if (stat.encryption_method != ZIP_EM_NONE)
    throw ZipFault(ZipStatus::UnsupportedVersion);
  if (stat.comp_method != ZIP_CM_STORE && stat.comp_method != ZIP_CM_DEFLATE)
    throw ZipFault(ZipStatus::UnsupportedVersion);
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
  mSource = std::make_unique<ArchiveInput>(*mFile, size, mFailure);
  SourceHandle source = mSource->MakeSource();
  ZipError error;
  mArchive.reset(zip_open_from_source(source.get(), ZIP_RDONLY, error.Get()));
  if (mArchive) {
    static_cast<void>(source.release());
    return;
  }
  if (!mFailure.cause && zip_error_code_zip(error.Get()) == ZIP_ER_NOZIP)
    throw ZipFault(StatusWithoutDirectory(*mFile, size));
  mFailure.Throw(error.Get());
}

void ArchiveReader::ReadDirectory() {
  const zip_int64_t count = zip_get_num_entries(mArchive.get(), 0);
  std::vector<std::string> names;
  for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
    zip_stat_t stat;
    if (zip_stat_index(mArchive.get(), index, 0, &stat) != 0)
      throw ZipFault(StatusOfLibzip(zip_get_error(mArchive.get())));
    std::string name = DecodedName(mArchive.get(), index);
    names.push_back(name);
    const bool isFolder = name.ends_with('\\');
    if (isFolder)
      name.pop_back();
    if (const ZipStatus status = CheckEntryName(name); status != ZipStatus::Done)
      throw ZipFault(status);
    if (!HasExpectedType(mArchive.get(), index, isFolder))
      throw ZipFault(ZipStatus::CannotCreateFile);
    if (isFolder)
      continue;
    CheckMethod(stat);
    const std::int64_t modified = ReadExtendedTime(mArchive.get(), index).value_or(stat.mtime);
    mEntries.push_back({index, std::move(name), stat.size, stat.crc, modified});
  }
  if (NamesClash(names))
    throw ZipFault(ZipStatus::NameRepeated);
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
