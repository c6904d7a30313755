// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/RegistryRoots.h"

#include "platform/CaseFold.h"

namespace turfdesk {

std::string_view NameOfRoot(RegistryRoot root) {
  return root == RegistryRoot::LocalMachine ? "HKEY_LOCAL_MACHINE" : "HKEY_CLASSES_ROOT";
}

std::optional<RegistryRoot> RootNamed(std::string_view name) {
  for (const RegistryRoot root : {RegistryRoot::LocalMachine, RegistryRoot::ClassesRoot})
    if (EqualsIgnoringCase(name, NameOfRoot(root)))
      return root;
  return std::nullopt;
}

} // namespace turfdesk
