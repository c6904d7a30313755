// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/InjectedFault.h"

#include <windows.h>

#include <bit>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace turfdesk {

namespace {

using Routine = void (*)();

/// Puts a routine of ours in the place of one that this program takes from the system, for all its callers in the
/// program, and gives the system's own.
Routine Replace(const std::string &name, Routine ours) {
  auto *const start = reinterpret_cast<std::byte *>(GetModuleHandleW(nullptr));
  const auto *const headers =
      reinterpret_cast<const IMAGE_NT_HEADERS *>(start + reinterpret_cast<const IMAGE_DOS_HEADER *>(start)->e_lfanew);
  const DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (const auto *library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR *>(start + imports); library->Name != 0;
       ++library) {
    const auto *names = reinterpret_cast<const IMAGE_THUNK_DATA *>(start + library->OriginalFirstThunk);
    auto *places = reinterpret_cast<IMAGE_THUNK_DATA *>(start + library->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++places) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal) ||
          name != reinterpret_cast<const IMAGE_IMPORT_BY_NAME *>(start + names->u1.AddressOfData)->Name)
        continue;
      DWORD protection = 0;
      VirtualProtect(places, sizeof(*places), PAGE_READWRITE, &protection);
      const auto real = std::bit_cast<Routine>(std::exchange(places->u1.Function, reinterpret_cast<ULONGLONG>(ours)));
      VirtualProtect(places, sizeof(*places), protection, &protection);
      return real;
    }
  }
  throw std::logic_error("the program does not call " + name);
}

/// What stood where a routine of ours stands.
template <auto Ours> decltype(Ours) real = nullptr;

template <auto Ours> void TakePlaceOf(const char *name) {
  real<Ours> = reinterpret_cast<decltype(Ours)>(Replace(name, reinterpret_cast<Routine>(Ours)));
}

const char *NameOf(FILE_INFO_BY_HANDLE_CLASS kind) {
  switch (kind) {
  case FileRenameInfo:
    return "SetFileInformationByHandle rename";
  case FileDispositionInfo:
    return "SetFileInformationByHandle delete";
  case FileAllocationInfo:
    return "SetFileInformationByHandle allocate";
  default:
    return "SetFileInformationByHandle";
  }
}

HANDLE WINAPI OpenFile(LPCWSTR path, DWORD access, DWORD sharing, LPSECURITY_ATTRIBUTES security, DWORD creation,
                       DWORD flags, HANDLE model) {
  // To look at a file, too, Windows has it opened. That is a question, and no work on the disk.
  const char *name = access == FILE_READ_ATTRIBUTES ? "CreateFile look" : "CreateFile";
  return InjectedFault::IsStruck(name) ? INVALID_HANDLE_VALUE
                                       : real<&OpenFile>(path, access, sharing, security, creation, flags, model);
}

BOOL WINAPI Write(HANDLE file, LPCVOID data, DWORD length, LPDWORD written, LPOVERLAPPED place) {
  return InjectedFault::IsStruck("WriteFile") ? FALSE : real<&Write>(file, data, length, written, place);
}

BOOL WINAPI Flush(HANDLE file) { return InjectedFault::IsStruck("FlushFileBuffers") ? FALSE : real<&Flush>(file); }

BOOL WINAPI SetInformation(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, LPVOID information, DWORD size) {
  return InjectedFault::IsStruck(NameOf(kind)) ? FALSE : real<&SetInformation>(file, kind, information, size);
}

BOOL WINAPI Delete(LPCWSTR path) { return InjectedFault::IsStruck("DeleteFile") ? FALSE : real<&Delete>(path); }

bool TakePlaces() {
  TakePlaceOf<&OpenFile>("CreateFileW");
  TakePlaceOf<&Write>("WriteFile");
  TakePlaceOf<&Flush>("FlushFileBuffers");
  TakePlaceOf<&SetInformation>("SetFileInformationByHandle");
  TakePlaceOf<&Delete>("DeleteFileW");
  return true;
}

/// From the start of the program on.
[[maybe_unused]] const bool placesTaken = TakePlaces();

} // namespace

Fault Refusal(DiskWork work) {
  switch (work) {
  case DiskWork::Write:
    return {{"WriteFile", "SetFileInformationByHandle allocate"}, ERROR_DISK_FULL};
  case DiskWork::Flush:
    return {{"FlushFileBuffers"}, ERROR_IO_DEVICE};
  case DiskWork::Rename:
    return {{"SetFileInformationByHandle rename"}, ERROR_ACCESS_DENIED};
  case DiskWork::Delete:
    return {{"DeleteFile", "SetFileInformationByHandle delete"}, ERROR_ACCESS_DENIED};
  case DiskWork::Open:
    break;
  }
  return {{"CreateFile"}, ERROR_ACCESS_DENIED};
}

void InjectedFault::TakeEffect(int error) {
  if (error == Fault::Kill)
    TerminateProcess(GetCurrentProcess(), 1);
  SetLastError(static_cast<DWORD>(error));
}

} // namespace turfdesk
