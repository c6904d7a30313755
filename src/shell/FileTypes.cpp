// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/FileTypes.h"

#include "support/Registry.h"

namespace turfdesk {

void RegisterFileTypes(SharedState &state) {
  for (const FileType &type : FileTypes) {
    CreateNewKey(state, type.extension, RegistryRoot::ClassesRoot);
    SetKeyValue(state, type.extension, "", type.text, RegSz);
  }
}

} // namespace turfdesk
