// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryBranches.h"

namespace turfdesk::test {

inline RegistryChange Change(RegistryChange::Kind kind, const std::string &keyPath, const std::string &name = {}) {
  return {kind, RegistryRoot::LocalMachine, keyPath, name, {}};
}

inline RegistryChange SetText(const std::string &keyPath, const std::string &name, const std::string &text) {
  return {RegistryChange::Kind::SetValue, RegistryRoot::LocalMachine, keyPath, name, {RegSz, 0, text}};
}

inline RegistryChange SetNumber(const std::string &keyPath, const std::string &name, std::int32_t number) {
  return {RegistryChange::Kind::SetValue, RegistryRoot::LocalMachine, keyPath, name, {RegDword, number, {}}};
}

/// "path: name=text name=number name=type:bytes" for each key of a branch of HKEY_LOCAL_MACHINE.
inline std::vector<std::string> BranchTexts(RegistryBranches &branches, const std::string &keyPath) {
  std::vector<std::string> texts;
  const RegistryBranch branch{RegistryRoot::LocalMachine, keyPath};
  for (const RegistryKeyContent &key : branches.Read({&branch, 1})) {
    std::string &text = texts.emplace_back(key.keyPath + ":");
    for (const auto &[name, data] : key.values)
      text += " " + name + "=" +
              (data.type == RegDword ? std::to_string(data.number)
               : data.type == RegSz  ? data.text
                                     : std::to_string(data.type) + ":" + data.text);
  }
  return texts;
}

} // namespace turfdesk::test
