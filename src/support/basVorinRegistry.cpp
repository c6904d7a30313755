// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/basVorinRegistry.h"

#include <charconv>

namespace turfdesk {

namespace {

constexpr std::int32_t IntegerKind = 1;

// A key that keeps being reported as deletable and stays must not hang the program.
constexpr int MostDeleteAttempts = 500;

/// Closes the open key also when reading or writing it fails.
class OpenedKey {
public:
  OpenedKey(SharedState &state, std::string_view root, std::string_view key, bool create)
      : mService(*state.registryService) {
    mService.SetRootKey(root);
    mOpen = mService.OpenKey(key, create);
  }
  OpenedKey(const OpenedKey &) = delete;
  OpenedKey &operator=(const OpenedKey &) = delete;
  ~OpenedKey() {
    if (mOpen)
      mService.CloseKey();
  }

  explicit operator bool() const { return mOpen; }
  RegistryService *operator->() const { return &mService; }

private:
  RegistryService &mService;
  bool mOpen = false;
};

std::int32_t ToNumber(std::string_view text) {
  std::int32_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

} // namespace

std::string GetRegistryValue(SharedState &state, std::string_view root, std::string_view key,
                             std::string_view valueName, std::string_view defaultValue) {
  const OpenedKey opened(state, root, key, false);
  if (!opened || !opened->ValueExists(valueName))
    return std::string(defaultValue);
  if (state.registryValueKind == IntegerKind)
    return std::to_string(opened->GetLongValue(valueName));
  return opened->GetStringValue(valueName);
}

bool SetRegistryValue(SharedState &state, std::string_view root, std::string_view key, std::string_view valueName,
                      std::string_view value) {
  const OpenedKey opened(state, root, key, true);
  if (!opened)
    return false;
  if (state.registryValueKind == IntegerKind)
    opened->SetLongValue(valueName, ToNumber(value));
  else if (!value.empty() || !valueName.empty())
    opened->SetStringValue(valueName, value);
  return opened->LastError() == 0;
}

bool RegistryValueExists(SharedState &state, std::string_view root, std::string_view key, std::string_view valueName) {
  const OpenedKey opened(state, root, key, false);
  return opened && opened->ValueExists(valueName);
}

bool RegistryKeyExists(SharedState &state, std::string_view root, std::string_view key) {
  state.registryService->SetRootKey(root);
  return state.registryService->KeyExists(key);
}

bool DeleteRegistryKey(SharedState &state, std::string_view root, std::string_view key) {
  RegistryService &service = *state.registryService;
  service.SetRootKey(root);
  bool deleted = false;
  int attempt = 0;
  for (; attempt < MostDeleteAttempts && service.KeyExists(key); ++attempt)
    deleted = service.DeleteKey(key);
  // That there is no such key is an answer without words; the opening has them.
  if (!deleted && attempt < MostDeleteAttempts && service.OpenKey(key, false))
    service.CloseKey();
  return deleted;
}

std::unique_ptr<RegistryReservation> ReserveRegistryKey(SharedState &state, KeyChange change, std::string_view root,
                                                        std::string_view key) {
  state.registryService->SetRootKey(root);
  return state.registryService->Reserve(change, key);
}

StringList GetSubkeys(SharedState &state, std::string_view root, std::string_view key) {
  const OpenedKey opened(state, root, key, false);
  if (!opened)
    return {};
  const std::int32_t count = opened->SubkeyCount();
  StringList names;
  names.reserve(count > 0 ? static_cast<std::size_t>(count) : 0);
  for (std::int32_t index = 0; index < count; ++index)
    names.push_back(opened->SubkeyName(index));
  return names;
}

std::string GetRegistryError(SharedState &state) { return state.registryService->LastErrorText(); }

} // namespace turfdesk
