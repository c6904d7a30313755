// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/WindowsRegistryService.h"

#include "platform/RegistryRoots.h"
#include "platform/ShownText.h"
#include "platform/windows/RegistryPath.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/WideText.h"

#include <windows.h>

namespace turfdesk {

namespace {

constexpr std::string_view noTree = "There is no settings tree of this name";

/// A path may end in a backslash.
std::string NoTextWords(RegistryRoot root, std::string_view keyPath, std::string_view valueName) {
  std::string words = "The settings value is no text\r\n\r\n" + std::string(NameOfRoot(root)) + '\\';
  words += AsOneLine(keyPath);
  if (!words.ends_with('\\'))
    words += '\\';
  words += AsOneLine(valueName);
  return words;
}

/// Does the failure say that there is nothing of this name?
bool IsAbsence(std::uint32_t error) { return error == RegistryNotFound || error == RegistryBadPath; }

} // namespace

namespace {

/// Held by one of our programs at a time, on whatever desktop.
class ProgramsLock final : public RegistryReservation {
public:
  /// Waits for another program for the usual patience, and throws RuntimeError 70 then. A lock that this user may not
  /// use is another user's, whose settings he may not change either.
  ProgramsLock() : mMutex(CreateMutexW(nullptr, FALSE, L"Global\\Turf Desk settings")) {
    constexpr DWORD patience = 5000;
    if (mMutex == nullptr || WaitForSingleObject(mMutex, patience) != WAIT_TIMEOUT)
      return;
    CloseHandle(mMutex);
    throw RuntimeError(ErrorNumber::PermissionDenied, "The settings are in use by another program.");
  }
  ~ProgramsLock() override {
    if (mMutex == nullptr)
      return;
    ReleaseMutex(mMutex);
    CloseHandle(mMutex);
  }

private:
  HANDLE mMutex;
};

} // namespace

WindowsRegistryService::WindowsRegistryService() {
  constexpr std::string_view settings = "Software";
  if (const auto error = mKey.Open(RegistryRoot::LocalMachine, ToWide(settings), KeyAccess::Read);
      error != RegistrySuccess)
    ThrowRegistryError(error, RegistryRoot::LocalMachine, settings);
  mKey.Close();
}

void WindowsRegistryService::SetRootKey(std::string_view rootName) {
  Begin();
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
  Begin();
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
  Begin();
  CloseKey();
  if (!mRoot)
    return Fail(ErrorNumber::PathNotFound, noTree);
  std::wstring path;
  std::uint32_t error = ToKeyPath(keyPath, path) ? mKey.Open(*mRoot, path, KeyAccess::Read) : RegistryBadPath;
  if (create && error == RegistryNotFound) {
    mWatch.BeforeOwnChange(*mRoot, path);
    error = mKey.Create(*mRoot, path, KeyAccess::Write);
    if (error == RegistrySuccess)
      mWatch.NoteKey(*mRoot, path);
  }
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
  mWatch.BeforeOwnChange(*mRoot, path);
  const std::uint32_t error = RegistryKey::Delete(*mRoot, path);
  if (error == RegistrySuccess)
    mWatch.NoteDeletion(*mRoot, path);
  return error == RegistrySuccess || Fail(error, keyPath);
}

std::unique_ptr<RegistryReservation> WindowsRegistryService::Reserve(KeyChange change, std::string_view keyPath) {
  Begin();
  auto lock = std::make_unique<ProgramsLock>();
  if (!IsPossible(change, keyPath))
    lock.reset();
  return lock;
}

bool WindowsRegistryService::IsPossible(KeyChange change, std::string_view keyPath) {
  std::wstring path;
  if (change == KeyChange::Delete)
    return FindDeletable(keyPath, path);
  if (!mRoot)
    return Fail(ErrorNumber::PathNotFound, noTree);
  RegistryKey key;
  std::uint32_t error = ToKeyPath(keyPath, path) ? key.Open(*mRoot, path, KeyAccess::Write) : RegistryBadPath;
  // A key that is to be made needs the right to make it in the first parent that is there.
  while (change == KeyChange::Create && error == RegistryNotFound && !path.empty()) {
    const std::size_t cut = path.rfind(L'\\');
    path.resize(cut == std::wstring::npos ? 0 : cut);
    error = key.Open(*mRoot, path, KeyAccess::MakeSubkeys);
  }
  return error == RegistrySuccess || Fail(error, keyPath);
}

void WindowsRegistryService::WatchKey(std::string_view keyPath) {
  Begin();
  std::wstring path;
  if (mRoot && ToKeyPath(keyPath, path))
    mWatch.Begin(*mRoot, path);
}

bool WindowsRegistryService::WatchedKeyChanged() {
  Begin();
  return mWatch.HasForeignChange();
}

bool WindowsRegistryService::FindDeletable(std::string_view keyPath, std::wstring &path) {
  Begin();
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
  Begin();
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
  Begin();
  if (!mKey.IsOpen()) {
    Fail(ErrorNumber::ObjectNotSet, ErrorText(ErrorNumber::ObjectNotSet));
    return;
  }
  std::wstring path;
  ToKeyPath(mOpenPath, path);
  const RawValue value{ToWide(valueName), type, std::move(bytes)};
  std::uint32_t error = mWritableKey.IsOpen() ? RegistrySuccess : mWritableKey.Reopen(mKey, KeyAccess::Write);
  if (error == RegistrySuccess) {
    mWatch.BeforeOwnChange(mOpenRoot, path);
    error = mWritableKey.Write(value);
  }
  if (error == RegistrySuccess)
    mWatch.NoteValue(mOpenRoot, path, value);
  if (error == RegistrySuccess)
    error = mWritableKey.Flush();
  if (error != RegistrySuccess)
    Fail(error, mOpenPath);
}

bool WindowsRegistryService::Fail(std::uint32_t error, std::string_view keyPath) {
  const RegistryRoot root = mKey.IsOpen() ? mOpenRoot : mRoot.value_or(RegistryRoot::LocalMachine);
  // The system's number for an absent key is that of an absent file.
  if (!IsGone(error))
    return Fail(NumberOfSystemError(error), RegistryWords(error, root, keyPath));
  // The system speaks of a file, and its number is that of an absent one.
  std::string words = "There is no such settings key\r\n\r\n" + std::string(NameOfRoot(root)) + '\\';
  return Fail(ErrorNumber::PathNotFound, words.append(AsOneLine(keyPath)));
}

void WindowsRegistryService::Begin() {
  mLastError = 0;
  mLastErrorText.clear();
}

bool WindowsRegistryService::Fail(ErrorNumber number, std::string_view words) {
  mLastError = static_cast<long>(number);
  mLastErrorText = words;
  return false;
}

} // namespace turfdesk
