// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/RegistryEdit.h"

#include "platform/windows/RegistryPath.h"
#include "platform/windows/WideText.h"

namespace turfdesk {

namespace {

void Require(std::uint32_t error, RegistryRoot root, const std::wstring &path) {
  if (error != RegistrySuccess)
    ThrowRegistryError(error, root, ToUtf8(path));
}

/// False when there is no such key.
bool OpenIfThere(RegistryKey &key, RegistryRoot root, const std::wstring &path, KeyAccess access) {
  const std::uint32_t error = key.Open(root, path, access);
  if (error != RegistryNotFound)
    Require(error, root, path);
  return error == RegistrySuccess;
}

/// Makes the key if need be, and writes the values over what it has.
std::uint32_t PutBack(RegistryRoot root, const std::wstring &path, const std::vector<RawValue> &values) {
  RegistryKey key;
  std::uint32_t error = key.Create(root, path, KeyAccess::Write);
  for (auto value = values.begin(); error == RegistrySuccess && value != values.end(); ++value)
    error = key.Write(*value);
  return error;
}

/// Deletes a key that was made here and is empty again. One with content is another program's by now and stays.
std::uint32_t TakeBackKey(RegistryRoot root, const std::wstring &path) {
  RegistryKey key;
  std::uint32_t subkeyCount = 0;
  std::vector<RawValue> values;
  std::uint32_t error = key.Open(root, path, KeyAccess::Read);
  if (error == RegistrySuccess)
    error = key.SubkeyCount(subkeyCount);
  if (error == RegistrySuccess)
    error = key.ReadAll(values);
  if (error != RegistrySuccess)
    return error;
  return subkeyCount == 0 && values.empty() ? RegistryKey::Delete(root, path) : RegistrySuccess;
}

std::uint32_t TakeBackValue(RegistryRoot root, const std::wstring &path, const std::wstring &valueName) {
  RegistryKey key;
  const std::uint32_t error = key.Open(root, path, KeyAccess::Write);
  return error == RegistrySuccess ? key.DeleteValue(valueName) : error;
}

} // namespace

void RegistryEdit::CreateKey(RegistryRoot root, const std::wstring &path) {
  RegistryKey key;
  if (OpenIfThere(key, root, path, KeyAccess::Read))
    return;
  // Parents first, so that each key that was not there is taken back by itself.
  if (const std::size_t cut = path.rfind(L'\\'); cut != std::wstring::npos)
    CreateKey(root, path.substr(0, cut));
  Touch(root, path);
  Require(key.Create(root, path, KeyAccess::Write), root, path);
  mUndo.emplace_back([root, path] { return TakeBackKey(root, path); });
}

void RegistryEdit::SetValue(RegistryRoot root, const std::wstring &path, const RawValue &value) {
  const RegistryKey &key = MakeWritable(root, path);
  RawValue replaced;
  const std::uint32_t error = key.Read(value.name, replaced);
  if (error != RegistryNotFound)
    Require(error, root, path);
  Touch(root, path);
  Require(key.Write(value), root, path);
  if (error == RegistrySuccess)
    PutBackLater(root, path, {std::move(replaced)});
  else
    mUndo.emplace_back([root, path, name = value.name] { return TakeBackValue(root, path, name); });
}

const RegistryKey &RegistryEdit::MakeWritable(RegistryRoot root, const std::wstring &path) {
  if (mWritable.IsOpen() && root == mWritableRoot && path == mWritablePath)
    return mWritable;
  CreateKey(root, path);
  Require(mWritable.Open(root, path, KeyAccess::Write), root, path);
  mWritableRoot = root;
  mWritablePath = path;
  return mWritable;
}

void RegistryEdit::DeleteValue(RegistryRoot root, const std::wstring &path, const std::wstring &valueName) {
  RegistryKey key;
  if (!OpenIfThere(key, root, path, KeyAccess::Read))
    return;
  RawValue value;
  const std::uint32_t error = key.Read(valueName, value);
  if (error == RegistryNotFound)
    return;
  Require(error, root, path);
  Require(key.Open(root, path, KeyAccess::Write), root, path);
  Touch(root, path);
  Require(key.DeleteValue(valueName), root, path);
  PutBackLater(root, path, {std::move(value)});
}

void RegistryEdit::DeleteKey(RegistryRoot root, const std::wstring &path) {
  RegistryKey key;
  if (!OpenIfThere(key, root, path, KeyAccess::Read))
    return;
  std::vector<std::wstring> names;
  Require(key.SubkeyNames(names), root, path);
  for (const std::wstring &name : names)
    DeleteKey(root, SubkeyPath(path, name));
  std::vector<RawValue> values;
  Require(key.ReadAll(values), root, path);
  key.Close();
  mWritable.Close();
  Touch(root, path);
  Require(RegistryKey::Delete(root, path), root, path);
  PutBackLater(root, path, std::move(values));
}

void RegistryEdit::Flush() {
  for (const auto &[root, path] : mTouched) {
    RegistryKey key;
    // A beginning that is gone lay where its root lies.
    if (!OpenIfThere(key, root, path, KeyAccess::Read))
      Require(key.Open(root, {}, KeyAccess::Read), root, {});
    Require(key.Flush(), root, path);
  }
}

bool RegistryEdit::Undo() {
  bool isComplete = true;
  for (; !mUndo.empty(); mUndo.pop_back()) {
    const std::uint32_t error = mUndo.back()();
    isComplete = isComplete && (error == RegistrySuccess || IsGone(error));
  }
  return isComplete;
}

void RegistryEdit::Touch(RegistryRoot root, const std::wstring &path) {
  mTouched.emplace(root, path.substr(0, path.find(L'\\')));
}

void RegistryEdit::PutBackLater(RegistryRoot root, const std::wstring &path, std::vector<RawValue> values) {
  mUndo.emplace_back([root, path, values = std::move(values)] { return PutBack(root, path, values); });
}

} // namespace turfdesk
