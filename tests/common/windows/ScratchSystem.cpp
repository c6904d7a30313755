// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/windows/ScratchSystem.h"

#include "common/WorldHome.h"

#include <windows.h>

#include <cstdlib>
#include <stdexcept>

namespace turfdesk::test {

namespace {

bool IsWine() {
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  return system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
}

struct Branch {
  HKEY root;
  const wchar_t *key;
};

constexpr const wchar_t *MachineKeys[] = {LR"(Software\KESTRAVON)", LR"(Software\Turf Desk Tests)",
                                          LR"(Software\Microsoft\Shared Tools)",
                                          LR"(Software\Microsoft\Shared Tools Location)"};
constexpr const wchar_t *ClassKeys[] = {L".hlb", L".hlc", L".hlz", L".hlx"};

void DeleteBranch(HKEY root, const wchar_t *name) {
  HKEY key = nullptr;
  LSTATUS status = RegOpenKeyExW(root, name, 0, KEY_ALL_ACCESS | KEY_WOW64_32KEY, &key);
  if (status == ERROR_FILE_NOT_FOUND)
    return;
  if (status == ERROR_SUCCESS) {
    status = RegDeleteTreeW(key, nullptr);
    RegCloseKey(key);
  }
  if (status == ERROR_SUCCESS)
    status = RegDeleteKeyExW(root, name, KEY_WOW64_32KEY, 0);
  if (status != ERROR_SUCCESS)
    throw std::runtime_error("a key of the scratch registry cannot be deleted");
}

/// A read-only file cannot be deleted.
void MakeDeletable(const std::filesystem::path &path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}

void DeleteBelow(const std::filesystem::path &path) {
  if (std::filesystem::is_directory(path))
    for (const auto &entry : std::filesystem::recursive_directory_iterator(path))
      MakeDeletable(entry.path());
  MakeDeletable(path);
  std::filesystem::remove_all(path);
}

} // namespace

void RequireScratchSystem() {
  if (std::getenv("TURFDESK_SCRATCH_PREFIX") == nullptr || !IsWine())
    throw std::runtime_error("This test deletes settings and files of drive C:. It runs only under Wine, in a prefix "
                             "that is made for it: see scripts/wine-scratch.");
}

void EmptyScratchSystem() {
  RequireScratchSystem();
  for (const wchar_t *key : MachineKeys)
    DeleteBranch(HKEY_LOCAL_MACHINE, key);
  for (const wchar_t *key : ClassKeys)
    DeleteBranch(HKEY_CLASSES_ROOT, key);
  std::vector<std::filesystem::path> doomed;
  for (const auto &entry : std::filesystem::directory_iterator(DriveOf({})))
    if (!IsOfSystem(entry.path()))
      doomed.push_back(entry.path());
  for (const std::filesystem::path &path : doomed)
    DeleteBelow(path);
}

} // namespace turfdesk::test
