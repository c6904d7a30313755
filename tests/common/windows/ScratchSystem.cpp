// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/ScratchSystem.h"

#include "common/WorldHome.h"
#include "platform/windows/Abandoned.h"
#include "samples/Basics.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace turfdesk::test {

namespace {

bool IsWine() {
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  return system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
}

constexpr const wchar_t *MachineKeys[] = {LR"(Software\KESTRAVON)", LR"(Software\Turf Desk Tests)",
                                          LR"(Software\Microsoft\Shared Tools)",
                                          LR"(Software\Microsoft\Shared Tools Location)"};
constexpr const wchar_t *ClassKeys[] = {L".hlb", L".hlc", L".hlz", L".hlx"};

void DeleteBranch(HKEY root, const wchar_t *name, REGSAM view) {
  HKEY key = nullptr;
  LSTATUS status = RegOpenKeyExW(root, name, 0, KEY_ALL_ACCESS | view, &key);
  if (status == ERROR_FILE_NOT_FOUND)
    return;
  if (status == ERROR_SUCCESS) {
    status = RegDeleteTreeW(key, nullptr);
    RegCloseKey(key);
  }
  if (status == ERROR_SUCCESS)
    status = RegDeleteKeyExW(root, name, view, 0);
  if (status != ERROR_SUCCESS)
    throw std::runtime_error("a key of the scratch registry cannot be deleted");
}

/// A read-only file cannot be deleted.
void MakeDeletable(const std::filesystem::path &path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}

void DeleteWithContents(const std::filesystem::path &path) {
  // A program that a test has left to itself may not have ended yet.
  constexpr int attempts = 100;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    MakeDeletable(path);
    // Paths of any length are reached by the system's own form only.
    RemoveWithContents(LR"(\\?\)" + path.native());
    DeleteFileW(path.c_str());
    if (!std::filesystem::exists(path))
      return;
    Sleep(50);
  }
  throw std::runtime_error("the scratch system cannot be emptied: " + samples::Utf8(path));
}

} // namespace

void RequireScratchSystem() {
  if (std::getenv("TURFDESK_SCRATCH_PREFIX") == nullptr || !IsWine())
    throw std::runtime_error("This test deletes settings and files of drive C:. It runs only under Wine, in a prefix "
                             "that is made for it: see scripts/wine-scratch.");
}

std::string OnWholeDisk(const std::string &folder) {
  RequireScratchSystem();
  using HostName = char *(__cdecl *)(const wchar_t *);
  const auto hostName = reinterpret_cast<HostName>(
      reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
  char *name = hostName(samples::HostPath(folder).c_str());
  if (name == nullptr)
    throw std::runtime_error("not on a disk of the host: " + folder);
  std::string path = std::string("Z:") + name;
  HeapFree(GetProcessHeap(), 0, name);
  // The link by which Wine finds the drive has a name that no path of Windows may hold.
  const std::string link = "/dosdevices/c:";
  path.replace(path.find(link), link.size(), "/drive_c");
  std::ranges::replace(path, '/', '\\');
  return path;
}

void EmptyScratchSystem() {
  RequireScratchSystem();
  for (const wchar_t *key : MachineKeys)
    DeleteBranch(HKEY_LOCAL_MACHINE, key, KEY_WOW64_32KEY);
  for (const wchar_t *key : ClassKeys)
    DeleteBranch(HKEY_CLASSES_ROOT, key, 0);
  // The current folder of a process cannot be deleted.
  std::filesystem::current_path(DriveOf({}));
  std::vector<std::filesystem::path> doomed;
  for (const auto &entry : std::filesystem::directory_iterator(DriveOf({})))
    if (!IsOfSystem(entry.path()))
      doomed.push_back(entry.path());
  for (const std::filesystem::path &path : doomed)
    DeleteWithContents(path);
}

} // namespace turfdesk::test
