// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/FileService.h"

#include "platform/PathText.h"

namespace turfdesk {

std::string FileService::GetBaseName(std::string_view path) { return std::string(BaseNameOf(path)); }
std::string FileService::GetPathPart(std::string_view path) { return std::string(PathPartOf(path)); }
std::string FileService::GetExtension(std::string_view path) { return std::string(ExtensionOf(path)); }
std::string FileService::GetFilePart(std::string_view path) { return std::string(FilePartOf(path)); }
std::string FileService::GetDirPrefix(std::string_view path) { return std::string(DirPrefixOf(path)); }

} // namespace turfdesk
