// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsBinaryFiles.h"

#include "platform/windows/FileFacts.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"

#include <windows.h>

#include <algorithm>

namespace turfdesk {

namespace {

/// Reads at an offset. Gives the number of bytes, 0 at the end of the file.
DWORD ReadAt(const SystemHandle &file, std::uint64_t offset, std::span<std::uint8_t> buffer) {
  OVERLAPPED place = {};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32U);
  constexpr std::size_t most = std::size_t{1} << 30U;
  DWORD count = 0;
  if (ReadFile(file.Get(), buffer.data(), static_cast<DWORD>(std::min(buffer.size(), most)), &count, &place) != 0)
    return count;
  if (const DWORD error = GetLastError(); error != ERROR_HANDLE_EOF)
    ThrowSystemError(error);
  return 0;
}

class WindowsBinaryFile final : public BinaryFile {
public:
  WindowsBinaryFile(SystemHandle file, std::uint64_t size) : mFile(std::move(file)), mSizeAtOpening(size) {}

  std::size_t Read(std::span<std::uint8_t> buffer) override {
    std::size_t total = 0;
    while (total < buffer.size()) {
      const DWORD count = ReadAt(mFile, mPosition, buffer.subspan(total));
      total += count;
      mPosition += count;
      // A read that came to the known end needs no further one to be told so.
      if (count == 0 || mPosition == mSizeAtOpening)
        break;
    }
    return total;
  }

  void Seek(std::uint64_t offset) override { mPosition = offset; }

  std::uint64_t Size() override { return mSizeAtOpening; }

  std::int64_t ModificationTime() override {
    FileFacts facts;
    if (const std::uint32_t error = LookAtOpen(mFile, facts); error != 0)
      ThrowSystemError(error);
    return static_cast<std::int64_t>(facts.modified / TicksPerSecond) - SecondsTo1970;
  }

private:
  SystemHandle mFile;
  std::uint64_t mSizeAtOpening;
  std::uint64_t mPosition = 0;
};

/// Missing, in a missing folder, on a drive or in a place of the network that is missing or not ready.
bool IsAbsence(std::uint32_t error) {
  switch (NumberOfSystemError(error)) {
  case ErrorNumber::FileNotFound:
  case ErrorNumber::PathNotFound:
  case ErrorNumber::DeviceUnavailable:
  case ErrorNumber::DiskNotReady:
    return true;
  default:
    return false;
  }
}

std::uint32_t OpenAndLook(std::string_view path, SystemHandle &file, FileFacts &facts) {
  std::wstring systemPath;
  if (const std::uint32_t error = ToSystemPath(path, systemPath); error != 0)
    return error;
  constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  if (const std::uint32_t error = OpenExisting(systemPath, GENERIC_READ, sharing, file); error != 0)
    return error;
  return LookAtOpen(file, facts);
}

} // namespace

std::unique_ptr<BinaryFile> WindowsBinaryFiles::OpenForBinaryRead(std::string_view path) {
  SystemHandle file;
  FileFacts facts;
  const std::uint32_t error = OpenAndLook(path, file, facts);
  if (IsAbsence(error) || facts.isFolder)
    return nullptr;
  if (error != 0)
    ThrowSystemError(error);
  return std::make_unique<WindowsBinaryFile>(std::move(file), facts.size);
}

} // namespace turfdesk
