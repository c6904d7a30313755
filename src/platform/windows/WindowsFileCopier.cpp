// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsFileCopier.h"

#include "platform/windows/FileFacts.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsStagedFiles.h"

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace turfdesk {

namespace {

/// A window repaints after each; slow disks take some tenths of a second for one.
constexpr std::size_t ChunkBytes = std::size_t{4} << 20U;

/// How much may wait for the disk. More would only make the flush at the end, in which nothing repaints, longer.
constexpr std::uint64_t UnwrittenBytes = std::uint64_t{64} << 20U;

struct SourceFile {
  SystemHandle file;
  FileFacts facts;
};

SourceFile OpenSource(std::string_view path) {
  SourceFile source;
  std::wstring systemPath;
  std::uint32_t error = ToSystemPath(path, systemPath);
  if (error == 0)
    error = OpenExisting(systemPath, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, source.file);
  if (error == 0)
    error = LookAtOpen(source.file, source.facts);
  if (error == 0 && source.facts.isFolder)
    error = ERROR_ACCESS_DENIED;
  if (error != 0)
    ThrowSystemError(error);
  return source;
}

DWORD ReadChunk(const SystemHandle &file, std::vector<std::uint8_t> &buffer) {
  DWORD count = 0;
  if (ReadFile(file.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) == 0)
    ThrowSystemError(GetLastError());
  return count;
}

void CopyContent(const SourceFile &source, WindowsStagedFile &staged, const FileCopier::Report &report) {
  const std::uint64_t total = source.facts.size;
  std::vector<std::uint8_t> buffer(ChunkBytes);
  std::uint64_t flushed = 0;
  while (staged.Tell() < total) {
    const DWORD count = ReadChunk(source.file, buffer);
    // The disk gives less than it has told of.
    if (count == 0)
      throw RuntimeError(ErrorNumber::DeviceIo);
    staged.Write({buffer.data(), count});
    if (staged.Tell() > flushed + UnwrittenBytes) {
      staged.Flush();
      flushed = staged.Tell();
    }
    if (report)
      report(staged.Tell(), total);
  }
}

class WindowsStagedCopy final : public StagedCopy {
public:
  explicit WindowsStagedCopy(std::unique_ptr<WindowsStagedFile> file) : mFile(std::move(file)) {}

  void Place() override { mFile->Place(); }
  bool HasReplaced() const override { return mFile->HasReplaced(); }
  void Keep() noexcept override { mFile->Keep(); }
  void TakeBack() override { mFile->TakeBack(); }
  std::string SetAsidePath() const override { return ToUtf8(PlainPath(mFile->SetAsidePath())); }

private:
  std::unique_ptr<WindowsStagedFile> mFile;
};

} // namespace

std::unique_ptr<StagedCopy> WindowsFileCopier::Stage(std::string_view sourcePath, std::string_view destinationPath,
                                                     const Report &report) {
  const SourceFile source = OpenSource(sourcePath);
  FileFacts existing;
  if (LookAt(destinationPath, existing) == 0 && existing.IsSameFile(source.facts))
    throw RuntimeError(ErrorNumber::PermissionDenied);

  auto staged = std::make_unique<WindowsStagedFile>(destinationPath, false, mSweeps);
  staged->Reserve(source.facts.size);
  CopyContent(source, *staged, report);
  staged->Flush();
  staged->KeepTime(source.facts.modified);
  return std::make_unique<WindowsStagedCopy>(std::move(staged));
}

} // namespace turfdesk
