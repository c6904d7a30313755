// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsStagedFiles.h"

#include "platform/windows/Abandoned.h"
#include "platform/windows/EndingGate.h"
#include "platform/windows/FileFacts.h"
#include "platform/windows/FolderEntries.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace turfdesk {

namespace {

void Check(BOOL result) {
  if (result == 0)
    ThrowSystemError(GetLastError());
}

constexpr std::size_t LongestName = 255;

/// Marks a file to be deleted when it is closed, or takes that back.
BOOL MarkForDeletion(const SystemHandle &file, bool marked) {
  FILE_DISPOSITION_INFO information = {static_cast<BOOLEAN>(marked)};
  return SetFileInformationByHandle(file.Get(), FileDispositionInfo, &information, sizeof(information));
}

/// The bytes of the structure that a file is renamed with.
std::vector<std::byte> RenameInformation(const std::wstring &newPath) {
  const std::size_t nameBytes = newPath.size() * sizeof(wchar_t);
  std::vector<std::byte> bytes(sizeof(FILE_RENAME_INFO) + nameBytes);
  auto *information = reinterpret_cast<FILE_RENAME_INFO *>(bytes.data());
  information->ReplaceIfExists = TRUE;
  information->FileNameLength = static_cast<DWORD>(nameBytes);
  std::memcpy(information->FileName, newPath.data(), nameBytes);
  return bytes;
}

} // namespace

WindowsStagedFile::WindowsStagedFile(std::string_view destination, bool makeFolders, SweepTimes<std::wstring> &sweeps) {
  StopIfEnding();
  std::wstring path;
  if (const std::uint32_t error = ToSystemPath(destination, path); error != 0)
    ThrowSystemError(error);
  if (IsRoot(path))
    ThrowSystemError(ERROR_ACCESS_DENIED);
  const std::size_t separator = path.rfind(L'\\');
  mFolder = path.substr(0, separator);
  // What is replaced keeps its name, in the case that it has.
  mName = NameOnDisk(path);
  if (mName.empty())
    mName = path.substr(separator + 1);
  // Sooner or later such a file would be taken for one that was left behind.
  if (StagedFileNames.Include(ToUtf8(mName)))
    ThrowSystemError(ERROR_INVALID_NAME);
  if (makeFolders)
    if (const std::uint32_t error = mNewFolders.Make(mFolder); error != 0)
      ThrowFolderError(error);
  CheckReplaceable();
  if (sweeps.IsDue(mFolder))
    RemoveAbandoned(mFolder, StagedFileNames, TemporaryKind::Files);
  OpenTemporary();
}

WindowsStagedFile::~WindowsStagedFile() {
  if (!mFile.IsOpen())
    return;
  mFile = SystemHandle();
  // For a disk that knows no mark for deletion.
  DeleteFileW(mTemporaryPath.c_str());
}

bool WindowsStagedFile::CheckReplaceable() const {
  const std::wstring path = Path();
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const std::uint32_t error = WhatIsMissing(GetLastError(), path);
    if (error != ERROR_FILE_NOT_FOUND)
      ThrowSystemError(error);
    return false;
  }
  if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0)
    ThrowSystemError(ERROR_ACCESS_DENIED);
  // Shared with nobody: the system replaces no file that is open, and then says only that access is denied. Of a link
  // it is the link that is replaced.
  SystemHandle existing;
  if (const std::uint32_t error = OpenExisting(path, DELETE, 0, existing, FILE_FLAG_OPEN_REPARSE_POINT); error != 0)
    ThrowSystemError(error);
  return true;
}

void WindowsStagedFile::OpenTemporary() {
  for (;;) {
    mTemporaryPath = mFolder + L"\\" + FreshName(StagedFileNames);
    mFile = SystemHandle(CreateFileW(mTemporaryPath.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr,
                                     CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (mFile.IsOpen())
      break;
    if (const DWORD error = GetLastError(); error != ERROR_FILE_EXISTS)
      ThrowFolderError(WhatIsMissing(error, mFolder));
  }
  // A disk that cannot do that leaves the deletion to the destructor.
  mIsMarked = MarkForDeletion(mFile, true) != 0;
}

void WindowsStagedFile::Write(std::span<const std::uint8_t> data) {
  constexpr std::size_t most = std::size_t{1} << 30U;
  while (!data.empty()) {
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(mPosition);
    place.OffsetHigh = static_cast<DWORD>(mPosition >> 32U);
    DWORD count = 0;
    Check(WriteFile(mFile.Get(), data.data(), static_cast<DWORD>(std::min(data.size(), most)), &count, &place));
    mPosition += count;
    data = data.subspan(count);
  }
}

void WindowsStagedFile::SetModificationTime(std::int64_t seconds) {
  KeepTime(static_cast<std::uint64_t>(seconds + SecondsTo1970) * TicksPerSecond);
}

void WindowsStagedFile::Reserve(std::uint64_t bytes) {
  FILE_ALLOCATION_INFO information;
  information.AllocationSize.QuadPart = static_cast<LONGLONG>(bytes);
  if (SetFileInformationByHandle(mFile.Get(), FileAllocationInfo, &information, sizeof(information)) != 0)
    return;
  if (const DWORD error = GetLastError(); NumberOfSystemError(error) == ErrorNumber::DiskFull)
    ThrowSystemError(error);
}

void WindowsStagedFile::Flush() { Check(FlushFileBuffers(mFile.Get())); }

void WindowsStagedFile::SetTime() {
  if (!mModified)
    return;
  const FILETIME time = {static_cast<DWORD>(*mModified), static_cast<DWORD>(*mModified >> 32U)};
  Check(SetFileTime(mFile.Get(), nullptr, nullptr, &time));
}

std::uint32_t WindowsStagedFile::Rename() {
  std::vector<std::byte> information = RenameInformation(Path());
  const BOOL renamed = SetFileInformationByHandle(mFile.Get(), FileRenameInfo, information.data(),
                                                  static_cast<DWORD>(information.size()));
  return renamed != 0 ? 0 : GetLastError();
}

void WindowsStagedFile::Finish(bool flush, bool setAside) {
  if (flush)
    Flush();
  const bool replaces = CheckReplaceable();
  // A file that stayed marked would be gone with its new name, and with it what stood there.
  if (mIsMarked)
    Check(MarkForDeletion(mFile, false));
  mIsMarked = false;
  SetTime();
  if (setAside && replaces)
    SetAside();
  // By the open file, so that nobody can come between.
  if (const std::uint32_t error = Rename(); error != 0) {
    if (HasReplaced())
      TakeBack();
    ThrowSystemError(error);
  }
  LookAtOpen(mFile, mOwnFacts);
  // The file is no longer there under the temporary name, and the new name goes to disk with the next flush.
  const SystemHandle file = std::move(mFile);
  if (!flush || FlushFileBuffers(file.Get()) != 0)
    return;
  const DWORD error = GetLastError();
  // Whoever is told of a failure expects what was there.
  if (!replaces)
    MarkForDeletion(file, true);
  if (HasReplaced())
    TakeBack();
  ThrowSystemError(error);
}

/// By a second name where the disk knows such, so that there is no moment without a file of the first.
void WindowsStagedFile::SetAside() {
  std::wstring name = FreshName(SetAsideNames);
  // A name of which a part was cut off would not tell where the file belongs.
  if (name.size() + 1 + mName.size() <= LongestName)
    name += L"-" + mName;
  const std::wstring aside = mFolder + L"\\" + name;
  if (CreateHardLinkW(aside.c_str(), Path().c_str(), nullptr) == 0)
    Check(MoveFileExW(Path().c_str(), aside.c_str(), 0));
  mSetAsidePath = aside;
}

void WindowsStagedFile::Keep() noexcept {
  if (HasReplaced())
    DeleteFileW(mSetAsidePath.c_str());
  mSetAsidePath.clear();
}

void WindowsStagedFile::TakeBack() {
  FileFacts aside;
  FileFacts present;
  const bool isThere = LookAt(ToUtf8(PlainPath(Path())), present) == 0;
  const bool isOwn = isThere && present.IsSameFile(mOwnFacts);
  if (!HasReplaced()) {
    if (isOwn)
      Check(DeleteFileW(Path().c_str()));
    return;
  }
  // Of two names of one file one is enough.
  const bool stillHasName =
      isThere && LookAt(ToUtf8(PlainPath(mSetAsidePath)), aside) == 0 && aside.IsSameFile(present);
  if (stillHasName) {
    Check(DeleteFileW(mSetAsidePath.c_str()));
  } else {
    // What another program has put there meanwhile is not ours to replace.
    const DWORD replacing = isOwn ? MOVEFILE_REPLACE_EXISTING : 0;
    Check(MoveFileExW(mSetAsidePath.c_str(), Path().c_str(), replacing | MOVEFILE_WRITE_THROUGH));
  }
  mSetAsidePath.clear();
}

std::unique_ptr<StagedFile> WindowsStagedFiles::Create(std::string_view destination, bool makeFolders) {
  return std::make_unique<WindowsStagedFile>(destination, makeFolders, mSweeps);
}

bool WindowsStagedFiles::IsSameFile(std::string_view first, std::string_view second) {
  FileFacts left;
  FileFacts right;
  return LookAt(first, left) == 0 && LookAt(second, right) == 0 && left.IsSameFile(right);
}

std::uint64_t WindowsStagedFiles::FreeBytes(std::string_view folder) {
  std::wstring path;
  if (const std::uint32_t error = ToSystemPath(folder, path); error != 0)
    ThrowFolderError(error);
  if (!IsRoot(path))
    path += L'\\';
  ULARGE_INTEGER available;
  if (GetDiskFreeSpaceExW(path.c_str(), &available, nullptr, nullptr) == 0)
    ThrowFolderError(WhatIsMissing(GetLastError(), path));
  return available.QuadPart;
}

} // namespace turfdesk
