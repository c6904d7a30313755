// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/FileTypes.h"

#include "support/Registry.h"

#include <array>

namespace turfdesk {

namespace {

struct FileType {
  const char *extension;
  const char *text;
};

constexpr std::array FileTypes = {FileType{".hlb", "KESTRAVON Library"}, FileType{".hlc", "KESTRAVON Course"},
                                  FileType{".hlz", "KESTRAVON Compressed Course"}};

} // namespace

void RegisterFileTypes(SharedState &state) {
  for (const FileType &type : FileTypes) {
    CreateNewKey(state, type.extension, RegistryRoot::ClassesRoot);
    SetKeyValue(state, type.extension, "", type.text, RegSz);
  }
}

} // namespace turfdesk
