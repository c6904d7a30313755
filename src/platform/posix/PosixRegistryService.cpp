// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PosixRegistryService.h"

#include "platform/RegistryRoots.h"
#include "platform/posix/PosixSettings.h"

namespace turfdesk {

namespace {

constexpr std::string_view noTree = "There is no settings tree of this name";
constexpr std::string_view noKey = "There is no such settings key";

/// Did this one request fail, as opposed to a store that cannot be used at all?
bool IsRefusal(const RuntimeError &error) {
  return error.Number() == ErrorNumber::PathFileAccess || error.Number() == ErrorNumber::BadFileName ||
         error.Number() == ErrorNumber::DiskFull || error.Number() == ErrorNumber::DeviceIo;
}

/// Holds the store for itself as long as it lives.
class StoreReservation final : public RegistryReservation {
public:
  explicit StoreReservation(std::shared_ptr<SettingsStore> store) : mStore(std::move(store)) { mStore->Reserve(); }
  ~StoreReservation() override { mStore->Release(); }

private:
  std::shared_ptr<SettingsStore> mStore;
};

} // namespace

std::unique_ptr<RegistryService> OpenRegistryService(const std::string &home) {
  return std::make_unique<PosixRegistryService>(home);
}

void PosixRegistryService::SetRootKey(std::string_view rootName) {
  Begin();
  mRoot = RootNamed(rootName);
  if (!mRoot)
    Fail(ErrorNumber::PathNotFound, noTree);
}

bool PosixRegistryService::KeyExists(std::string_view keyPath) {
  Begin();
  return mRoot && mStore->Find(*mRoot, keyPath);
}

template <typename Request> bool PosixRegistryService::Write(const Request &request) {
  try {
    request();
    return true;
  } catch (const RuntimeError &error) {
    return Fail(error.Number(), error.Description());
  }
}

bool PosixRegistryService::OpenKey(std::string_view keyPath, bool create) {
  Begin();
  mIsOpen = false;
  if (!mRoot)
    return Fail(ErrorNumber::PathNotFound, noTree);
  if (!mStore->Find(*mRoot, keyPath)) {
    if (!create)
      return Fail(ErrorNumber::PathNotFound, noKey);
    if (!Write([&] { mStore->CreateKey(*mRoot, keyPath); }))
      return false;
  }
  mOpenRoot = *mRoot;
  mOpenPath = keyPath;
  mIsOpen = true;
  return true;
}

bool PosixRegistryService::DeleteKey(std::string_view keyPath) {
  return Delete([this, keyPath] { return mStore->DeleteKey(*mRoot, keyPath); });
}

std::unique_ptr<RegistryReservation> PosixRegistryService::Reserve(KeyChange change, std::string_view keyPath) {
  Begin();
  if (!mRoot) {
    Fail(ErrorNumber::PathNotFound, noTree);
    return nullptr;
  }
  try {
    auto reservation = std::make_unique<StoreReservation>(mStore);
    if (IsPossible(change, keyPath))
      return reservation;
  } catch (const RuntimeError &error) {
    if (!IsRefusal(error))
      throw;
    Fail(error.Number(), error.Description());
  }
  return nullptr;
}

bool PosixRegistryService::IsPossible(KeyChange change, std::string_view keyPath) {
  if (change == KeyChange::Delete)
    return Delete([this, keyPath] { return mStore->TryDeleteKey(*mRoot, keyPath); });
  return change == KeyChange::Create || mStore->Find(*mRoot, keyPath) || Fail(ErrorNumber::PathNotFound, noKey);
}

void PosixRegistryService::WatchKey(std::string_view keyPath) {
  Begin();
  mStore->WatchKey(mRoot.value_or(RegistryRoot::LocalMachine), keyPath);
}

bool PosixRegistryService::WatchedKeyChanged() {
  Begin();
  return mStore->WatchedKeyChanged();
}

template <typename Deletion> bool PosixRegistryService::Delete(const Deletion &deletion) {
  Begin();
  if (!mRoot)
    return Fail(ErrorNumber::PathNotFound, noTree);
  try {
    const SettingsStore::Deletion result = deletion();
    if (result == SettingsStore::Deletion::NoSuchKey)
      return Fail(ErrorNumber::PathNotFound, noKey);
    if (result == SettingsStore::Deletion::HasSubkeys)
      return Fail(ErrorNumber::PathFileAccess, "A settings key that has subkeys is not deleted");
    return true;
  } catch (const RuntimeError &error) {
    // A busy store has been waited for long enough: no answer, lest a caller try again and again.
    if (!IsRefusal(error))
      throw;
    return Fail(error.Number(), error.Description());
  }
}

std::int32_t PosixRegistryService::SubkeyCount() {
  const SettingsKey *key = OpenedKey();
  return key ? static_cast<std::int32_t>(key->subkeys.size()) : 0;
}

std::string PosixRegistryService::SubkeyName(std::int32_t index) {
  const SettingsKey *key = OpenedKey();
  if (!key || index < 0 || static_cast<std::size_t>(index) >= key->subkeys.size())
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return key->subkeys[static_cast<std::size_t>(index)]->name;
}

bool PosixRegistryService::ValueExists(std::string_view valueName) {
  const SettingsKey *key = OpenedKey();
  return key && key->FindValue(valueName);
}

std::int32_t PosixRegistryService::GetLongValue(std::string_view valueName) {
  const auto value = OpenedValue(valueName);
  if (!value)
    return 0;
  if (value->type != SettingsType::Number)
    Fail(ErrorNumber::FileNotFound, "The settings value is no number");
  return value->number;
}

std::string PosixRegistryService::GetStringValue(std::string_view valueName) {
  const auto value = OpenedValue(valueName);
  if (!value)
    return "";
  return value->type == SettingsType::Number ? std::to_string(value->number) : std::string(value->text);
}

void PosixRegistryService::SetLongValue(std::string_view valueName, std::int32_t value) {
  SetValue(valueName, {SettingsType::Number, value, {}});
}

void PosixRegistryService::SetStringValue(std::string_view valueName, std::string_view value) {
  SetValue(valueName, {SettingsType::Text, 0, value});
}

void PosixRegistryService::SetValue(std::string_view valueName, const SettingsValue &value) {
  Begin();
  if (!mIsOpen) {
    Fail(ErrorNumber::ObjectNotSet, ErrorText(ErrorNumber::ObjectNotSet));
    return;
  }
  Write([&] {
    if (!mStore->SetValue(mOpenRoot, mOpenPath, valueName, value))
      Fail(ErrorNumber::PathNotFound, "The settings key has been deleted meanwhile");
  });
}

const SettingsKey *PosixRegistryService::OpenedKey() {
  Begin();
  if (!mIsOpen)
    throw RuntimeError(ErrorNumber::ObjectNotSet);
  return mStore->Find(mOpenRoot, mOpenPath);
}

std::optional<SettingsValue> PosixRegistryService::OpenedValue(std::string_view valueName) {
  const SettingsKey *key = OpenedKey();
  const auto value = key ? key->FindValue(valueName) : std::nullopt;
  if (!value)
    Fail(ErrorNumber::FileNotFound, "There is no such settings value");
  return value;
}

void PosixRegistryService::Begin() {
  mLastError = 0;
  mLastErrorText.clear();
}

bool PosixRegistryService::Fail(ErrorNumber number, std::string_view words) {
  mLastError = static_cast<long>(number);
  mLastErrorText = words;
  return false;
}

} // namespace turfdesk
