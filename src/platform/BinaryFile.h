// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace turfdesk {

/// A file that is open for binary reading. It is closed with the object.
class BinaryFile {
public:
  BinaryFile() = default;
  BinaryFile(const BinaryFile &) = delete;
  BinaryFile &operator=(const BinaryFile &) = delete;
  virtual ~BinaryFile() = default;

  /// Reads from the current position and moves it on. Gives the number of bytes read, which is less than asked for
  /// only at the end of the file. Throws RuntimeError 57 when the device fails.
  virtual std::size_t Read(std::span<std::uint8_t> buffer) = 0;
  /// Moves the place of the next Read to an offset from the start of the file.
  virtual void Seek(std::uint64_t offset) = 0;
  /// Size of the file in bytes when it was opened.
  virtual std::uint64_t Size() = 0;
  /// When the content was last changed, in seconds since 1970. Throws RuntimeError 57 when the device fails.
  virtual std::int64_t ModificationTime() = 0;
};

/// Opens files for reading, by Windows path in UTF-8.
class BinaryFiles {
public:
  BinaryFiles() = default;
  BinaryFiles(const BinaryFiles &) = delete;
  BinaryFiles &operator=(const BinaryFiles &) = delete;
  virtual ~BinaryFiles() = default;

  /// Null when there is no such file (a missing one, a missing folder or drive, a folder, an empty path). Any other
  /// obstacle throws RuntimeError: 75 no access, 70 in use, 52 a path that no file can have, 57 the device fails.
  virtual std::unique_ptr<BinaryFile> OpenForBinaryRead(std::string_view path) = 0;
};

} // namespace turfdesk
