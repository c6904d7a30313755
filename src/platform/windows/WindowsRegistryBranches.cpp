// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsRegistryBranches.h"

#include "platform/RuntimeError.h"
#include "platform/windows/RegistryEdit.h"
#include "platform/windows/RegistryPath.h"
#include "platform/windows/WideText.h"

namespace turfdesk {

namespace {

RegistryValue ValueOf(const RawValue &raw) {
  RegistryValue value{ToUtf8(raw.name), {raw.type, 0, {}}};
  if (raw.type == RegDword)
    value.data.number = NumberOf(raw);
  else
    value.data.text = raw.type == RegSz ? TextOf(raw) : raw.bytes;
  return value;
}

RawValue RawValueOf(const RegistryChange &change) {
  const bool isNumber = change.data.type == RegDword;
  return {ToWide(change.valueName), change.data.type,
          isNumber ? BytesOfNumber(change.data.number) : BytesOfText(change.data.text)};
}

/// A key that has been deleted meanwhile counts as one without content.
void RequireRead(std::uint32_t error, RegistryRoot root, const std::wstring &path) {
  if (error != RegistrySuccess && error != RegistryKeyDeleted)
    ThrowRegistryError(error, root, ToUtf8(path));
}

void ReadKey(RegistryRoot root, const std::wstring &path, std::vector<RegistryKeyContent> &contents) {
  RegistryKey key;
  const std::uint32_t error = key.Open(root, path, KeyAccess::Read);
  if (error == RegistryNotFound)
    return;
  RequireRead(error, root, path);
  std::vector<RawValue> values;
  std::vector<std::wstring> names;
  RequireRead(key.ReadAll(values), root, path);
  RequireRead(key.SubkeyNames(names), root, path);
  key.Close();
  RegistryKeyContent &content = contents.emplace_back(RegistryKeyContent{root, ToUtf8(path), {}});
  for (const RawValue &value : values)
    content.values.push_back(ValueOf(value));
  for (const std::wstring &name : names)
    ReadKey(root, SubkeyPath(path, name), contents);
}

std::wstring PathOf(const RegistryChange &change) {
  std::wstring path;
  if (!ToKeyPath(change.keyPath, path))
    ThrowRegistryError(RegistryBadPath, change.root, change.keyPath);
  if (path.empty() && change.kind == RegistryChange::Kind::DeleteKey)
    throw RuntimeError(ErrorNumber::PathFileAccess, "A root of the settings is not deleted");
  return path;
}

void Make(RegistryEdit &edit, const RegistryChange &change) {
  const std::wstring path = PathOf(change);
  switch (change.kind) {
  case RegistryChange::Kind::CreateKey:
    edit.CreateKey(change.root, path);
    break;
  case RegistryChange::Kind::SetValue:
    edit.SetValue(change.root, path, RawValueOf(change));
    break;
  case RegistryChange::Kind::DeleteValue:
    edit.DeleteValue(change.root, path, ToWide(change.valueName));
    break;
  case RegistryChange::Kind::DeleteKey:
    edit.DeleteKey(change.root, path);
    break;
  }
}

} // namespace

std::vector<RegistryKeyContent> WindowsRegistryBranches::Read(std::span<const RegistryBranch> branches) {
  std::vector<RegistryKeyContent> contents;
  for (const RegistryBranch &branch : branches)
    if (std::wstring path; ToKeyPath(branch.keyPath, path))
      ReadKey(branch.root, path, contents);
  return contents;
}

void WindowsRegistryBranches::Apply(std::span<const RegistryChange> changes) {
  RegistryEdit edit;
  try {
    for (const RegistryChange &change : changes)
      Make(edit, change);
    edit.Flush();
  } catch (const RuntimeError &error) {
    if (edit.Undo())
      throw;
    throw RuntimeError(error.Number(), error.Description() + "\r\n\r\nSome of the settings that had been changed "
                                                             "before that could not be put back.");
  } catch (...) {
    edit.Undo();
    throw;
  }
}

} // namespace turfdesk
