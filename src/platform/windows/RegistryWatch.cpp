// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/RegistryWatch.h"

#include "platform/CaseFold.h"
#include "platform/windows/RegistryPath.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <vector>

namespace turfdesk {

namespace {

std::string Folded(const std::wstring &text) { return FoldCase(ToUtf8(text)); }

} // namespace

RegistryWatch::~RegistryWatch() {
  if (mEvent != nullptr)
    CloseHandle(mEvent);
}

void RegistryWatch::Begin(RegistryRoot root, const std::wstring &path) {
  mRoot = root;
  mPath = path;
  mHasBegun = true;
  mChanged = false;
  mBranch.clear();
  Arm();
  Read(mPath, mBranch);
}

/// Before the branch is read, so that no change falls between.
void RegistryWatch::Arm() {
  if (mEvent != nullptr)
    CloseHandle(std::exchange(mEvent, nullptr));
  if (mKey.Open(mRoot, mPath, KeyAccess::Read) != RegistrySuccess)
    return;
  mEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  if (mEvent != nullptr && mKey.TellOfChanges(mEvent) != RegistrySuccess)
    CloseHandle(std::exchange(mEvent, nullptr));
}

bool RegistryWatch::HasForeignChange() {
  if (!mHasBegun || mChanged)
    return mChanged;
  if (mEvent != nullptr && WaitForSingleObject(mEvent, 0) == WAIT_TIMEOUT)
    return false;
  Arm();
  Branch present;
  Read(mPath, present);
  mChanged = present != mBranch;
  return mChanged;
}

void RegistryWatch::BeforeOwnChange(RegistryRoot root, const std::wstring &path) {
  const auto place = PlaceOf(root, path);
  if (!place || mChanged)
    return;
  RegistryKey key;
  Values values;
  const bool isThere = key.Open(root, path, KeyAccess::Read) == RegistrySuccess && ReadValues(key, path, values);
  const auto known = mBranch.find(*place);
  mChanged = isThere ? known == mBranch.end() || known->second != values : known != mBranch.end();
}

void RegistryWatch::NoteKey(RegistryRoot root, const std::wstring &path) {
  if (const auto place = PlaceOf(root, path)) {
    mBranch[*place];
    // Its parents have been made, too.
    if (const std::size_t cut = path.rfind(L'\\'); cut != std::wstring::npos)
      NoteKey(root, path.substr(0, cut));
  }
}

void RegistryWatch::NoteValue(RegistryRoot root, const std::wstring &path, const RawValue &value) {
  if (const auto place = PlaceOf(root, path))
    mBranch[*place][Folded(value.name)] = {value.type, value.bytes};
}

void RegistryWatch::NoteDeletion(RegistryRoot root, const std::wstring &path) {
  if (const auto place = PlaceOf(root, path))
    mBranch.erase(*place);
}

std::optional<std::string> RegistryWatch::PlaceOf(RegistryRoot root, const std::wstring &path) const {
  if (!mHasBegun || root != mRoot)
    return std::nullopt;
  std::string place = Folded(path);
  const std::string top = Folded(mPath);
  const bool isBelow = place.starts_with(top) && (place.size() == top.size() || place[top.size()] == '\\');
  return isBelow ? std::optional(std::move(place)) : std::nullopt;
}

bool RegistryWatch::ReadValues(const RegistryKey &key, const std::wstring &path, Values &values) const {
  std::vector<RawValue> raw;
  const std::uint32_t error = key.ReadAll(raw);
  if (error != RegistrySuccess && !IsGone(error))
    ThrowRegistryError(error, mRoot, ToUtf8(path));
  for (RawValue &value : raw)
    values[Folded(value.name)] = {value.type, std::move(value.bytes)};
  return error == RegistrySuccess;
}

void RegistryWatch::Read(const std::wstring &path, Branch &branch) const {
  RegistryKey key;
  const std::uint32_t error = key.Open(mRoot, path, KeyAccess::Read);
  if (IsGone(error))
    return;
  if (error != RegistrySuccess)
    ThrowRegistryError(error, mRoot, ToUtf8(path));
  Values values;
  std::vector<std::wstring> names;
  if (!ReadValues(key, path, values))
    return;
  branch[Folded(path)] = std::move(values);
  if (const std::uint32_t listing = key.SubkeyNames(names); listing != RegistrySuccess && !IsGone(listing))
    ThrowRegistryError(listing, mRoot, ToUtf8(path));
  for (const std::wstring &name : names)
    Read(SubkeyPath(path, name), branch);
}

} // namespace turfdesk
