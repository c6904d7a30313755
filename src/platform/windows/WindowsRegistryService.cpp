// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsRegistryService.h"

#include "platform/RegistryRoots.h"
#include "platform/windows/RegistryPath.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/WideText.h"

namespace turfdesk {

namespace {

constexpr std::string_view noTree = "There is no settings tree of this name";

/// A path may end in a backslash.
std::string NoTextWords(RegistryRoot root, std::string_view keyPath, std::string_view valueName) {
  std::string words = "The settings value is no text\r\n\r\n" + std::string(NameOfRoot(root)) + '\\';
  words += keyPath;
  if (!words.ends_with('\\'))
    words += '\\';
  words += valueName;
  return words;
}

/// Does the failure say that there is nothing of this name?
bool IsAbsence(std::uint32_t error) { return error == RegistryNotFound || error == RegistryBadPath; }

} // namespace

WindowsRegistryService::WindowsRegistryService() {
  constexpr std::string_view settings = "Software";
  if (const auto error = mKey.Open(RegistryRoot::LocalMachine, ToWide(settings), KeyAccess::Read);
      error != RegistrySuccess)
    ThrowRegistryError(error, RegistryRoot::LocalMachine, settings);
  mKey.Close();
}

void WindowsRegistryService::SetRootKey(std::string_view rootName) {
  mLastError = 0;
  mRoot = RootNamed(rootName);
  if (!mRoot)
    Fail(ErrorNumber::PathNotFound, noTree);
}

void WindowsRegistryService::CloseKey() {
  mKey.Close();
  mWritableKey.Close();
  mSubkeys.reset();
}

bool WindowsRegistryService::KeyExists(std::string_view keyPath) {
  mLastError = 0;
  std::wstring path;
  if (!mRoot || !ToKeyPath(keyPath, path))
    return false;
  RegistryKey key;
  const std::uint32_t error = key.Open(*mRoot, path, KeyAccess::Read);
  if (error != RegistrySuccess && !IsAbsence(error))
    ThrowRegistryError(error, *mRoot, keyPath);
  return error == RegistrySuccess;
}

bool WindowsRegistryService::OpenKey(std::string_view keyPath, bool create) {
  mLastError = 0;
  CloseKey();
  if (!mRoot)
    return Fail(ErrorNumber::PathNotFound, noTree);
  std::wstring path;
  std::uint32_t error = ToKeyPath(keyPath, path) ? mKey.Open(*mRoot, path, KeyAccess::Read) : RegistryBadPath;
  if (create && error == RegistryNotFound)
    error = mKey.Create(*mRoot, path, KeyAccess::Write);
  if (error != RegistrySuccess) {
    if (!create && !IsAbsence(error))
      ThrowRegistryError(error, *mRoot, keyPath);
    return Fail(error, keyPath);
  }
  mOpenRoot = *mRoot;
  mOpenPath = keyPath;
  return true;
}

bool WindowsRegistryService::DeleteKey(std::string_view keyPath) {
  std::wstring path;
  if (!FindDeletable(keyPath, path))
    return false;
  mSubkeys.reset();
  const std::uint32_t error = RegistryKey::Delete(*mRoot, path);
  return error == RegistrySuccess || Fail(error, keyPath);
}

bool WindowsRegistryService::MayDeleteKey(std::string_view keyPath) {
  std::wstring path;
  return FindDeletable(keyPath, path);
}

bool WindowsRegistryService::FindDeletable(std::string_view keyPath, std::wstring &path) {
  mLastError = 0;
  if (!mRoot)
    return Fail(ErrorNumber::PathNotFound, noTree);
  RegistryKey key;
  std::uint32_t subkeyCount = 0;
  std::uint32_t error = ToKeyPath(keyPath, path) ? key.Open(*mRoot, path, KeyAccess::Delete) : RegistryBadPath;
  if (error == RegistrySuccess)
    error = key.SubkeyCount(subkeyCount);
  if (error != RegistrySuccess)
    return Fail(error, keyPath);
  // For both the system has only the words that access is denied, and a root goes as one with subkeys.
  if (subkeyCount > 0 || path.empty())
    return Fail(ErrorNumber::PathFileAccess, "A settings key that has subkeys is not deleted");
  return true;
}

void WindowsRegistryService::RequireOpenKey() {
  mLastError = 0;
  if (!mKey.IsOpen())
    throw RuntimeError(ErrorNumber::ObjectNotSet);
}

void WindowsRegistryService::ReadSubkeyNames() {
  std::vector<std::wstring> names;
  if (const auto error = mKey.SubkeyNames(names); error != RegistrySuccess && error != RegistryKeyDeleted)
    ThrowRegistryError(error, mOpenRoot, mOpenPath);
  mSubkeys.emplace();
  for (const std::wstring &name : names)
    mSubkeys->push_back(ToUtf8(name));
}

std::int32_t WindowsRegistryService::SubkeyCount() {
  RequireOpenKey();
  ReadSubkeyNames();
  return static_cast<std::int32_t>(mSubkeys->size());
}

std::string WindowsRegistryService::SubkeyName(std::int32_t index) {
  RequireOpenKey();
  if (!mSubkeys)
    ReadSubkeyNames();
  if (index < 0 || static_cast<std::size_t>(index) >= mSubkeys->size())
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return (*mSubkeys)[static_cast<std::size_t>(index)];
}

bool WindowsRegistryService::Read(std::string_view valueName, RawValue &value) {
  RequireOpenKey();
  const std::uint32_t error = mKey.Read(ToWide(valueName), value);
  if (error == RegistrySuccess)
    return true;
  if (!IsAbsence(error) && error != RegistryKeyDeleted)
    ThrowRegistryError(error, mOpenRoot, mOpenPath);
  return false;
}

bool WindowsRegistryService::ValueExists(std::string_view valueName) {
  RawValue value;
  return Read(valueName, value);
}

std::int32_t WindowsRegistryService::GetLongValue(std::string_view valueName) {
  RawValue value;
  if (!Read(valueName, value)) {
    Fail(ErrorNumber::FileNotFound, RegistryWords(RegistryNotFound, mOpenRoot, mOpenPath));
    return 0;
  }
  if (value.type == RegDword)
    return NumberOf(value);
  Fail(ErrorNumber::FileNotFound, "The settings value is no number");
  return 0;
}

std::string WindowsRegistryService::GetStringValue(std::string_view valueName) {
  RawValue value;
  if (!Read(valueName, value)) {
    Fail(ErrorNumber::FileNotFound, RegistryWords(RegistryNotFound, mOpenRoot, mOpenPath));
    return "";
  }
  if (value.type == RegSz)
    return TextOf(value);
  if (value.type == RegExpandSz)
    return ExpandedTextOf(value);
  if (value.type == RegDword)
    return std::to_string(NumberOf(value));
  throw RuntimeError(ErrorNumber::TypeMismatch, NoTextWords(mOpenRoot, mOpenPath, valueName));
}

void WindowsRegistryService::SetLongValue(std::string_view valueName, std::int32_t value) {
  Write(valueName, RegDword, BytesOfNumber(value));
}

void WindowsRegistryService::SetStringValue(std::string_view valueName, std::string_view value) {
  Write(valueName, RegSz, BytesOfText(value));
}

void WindowsRegistryService::Write(std::string_view valueName, std::uint32_t type, std::string bytes) {
  mLastError = 0;
  if (!mKey.IsOpen()) {
    Fail(ErrorNumber::ObjectNotSet, ErrorText(ErrorNumber::ObjectNotSet));
    return;
  }
  std::uint32_t error = mWritableKey.IsOpen() ? RegistrySuccess : mWritableKey.Reopen(mKey, KeyAccess::Write);
  if (error == RegistrySuccess)
    error = mWritableKey.Write({ToWide(valueName), type, std::move(bytes)});
  if (error == RegistrySuccess)
    error = mWritableKey.Flush();
  if (error != RegistrySuccess)
    Fail(error, mOpenPath);
}

bool WindowsRegistryService::Fail(std::uint32_t error, std::string_view keyPath) {
  const RegistryRoot root = mKey.IsOpen() ? mOpenRoot : mRoot.value_or(RegistryRoot::LocalMachine);
  // The system's number for an absent key is that of an absent file.
  return Fail(IsGone(error) ? ErrorNumber::PathNotFound : NumberOfSystemError(error),
              RegistryWords(error, root, keyPath));
}

bool WindowsRegistryService::Fail(ErrorNumber number, std::string_view words) {
  mLastError = static_cast<long>(number);
  mLastErrorText = words;
  return false;
}

} // namespace turfdesk
