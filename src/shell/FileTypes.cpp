// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/FileTypes.h"

#include "platform/RuntimeError.h"
#include "support/Prompts.h"
#include "support/Registry.h"

#include <algorithm>
#include <exception>
#include <vector>

namespace turfdesk {

namespace {

bool IsRegistered(SharedState &state, const FileType &type) {
  RegistryFunctions &functions = state.platform.DirectRegistry();
  RegistryHandle key = 0;
  if (functions.RegOpenKeyExA(RegistryRoot::ClassesRoot, type.extension, key) != RegSuccess)
    return false;
  std::string text;
  const std::int32_t result = QueryValueEx(state, key, "", text);
  functions.RegCloseKey(key);
  return result == RegSuccess && text == std::string(type.text) + '\0';
}

/// A tree of our own is written at once and as a whole, so that one that cannot be written costs one box, and one that
/// is in use one wait.
void RegisterInOwnTree(SharedState &state) {
  if (std::ranges::all_of(FileTypes, [&state](const FileType &type) { return IsRegistered(state, type); }))
    return;
  std::vector<RegistryChange> changes;
  changes.reserve(FileTypes.size());
  for (const FileType &type : FileTypes)
    changes.push_back(
        {RegistryChange::Kind::SetValue, RegistryRoot::ClassesRoot, type.extension, "", {RegSz, 0, type.text}});
  try {
    state.platform.Branches().Apply(changes);
  } catch (const std::exception &error) {
    ShowPlainBox(state.boxes, DescriptionOf(error));
  }
}

} // namespace

void RegisterFileTypes(SharedState &state) {
  if (HasHomeFolder()) {
    RegisterInOwnTree(state);
    return;
  }
  for (const FileType &type : FileTypes) {
    CreateNewKey(state, type.extension, RegistryRoot::ClassesRoot);
    SetKeyValue(state, type.extension, "", type.text, RegSz);
  }
}

} // namespace turfdesk
