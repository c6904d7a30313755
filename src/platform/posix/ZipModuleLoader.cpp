// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/ZipModuleLoader.h"

#include "platform/RuntimeError.h"
#include "platform/posix/ProgramFile.h"
#include "platform/zip/ZipModule.h"

#include <dlfcn.h>

#include <filesystem>

namespace turfdesk {

namespace {

constexpr const char *ModuleName = "turfdesk-zip.so";

std::filesystem::path FindModule() {
  const std::filesystem::path folder = ProgramFile().parent_path();
  const std::filesystem::path beside = folder / ModuleName;
  std::error_code error;
  return std::filesystem::exists(beside, error) ? beside : folder.parent_path() / "lib" / "turfdesk" / ModuleName;
}

MakeZipLayerFunction *Load() {
  // Never unloaded: the layers that it makes are code of it.
  void *module = dlopen(FindModule().c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  void *symbol = module != nullptr ? dlsym(module, MakeZipLayerName) : nullptr;
  if (symbol == nullptr)
    throw RuntimeError(ErrorNumber::FileNotFound, std::string("Packages cannot be used: ") + dlerror());
  return reinterpret_cast<MakeZipLayerFunction *>(symbol);
}

} // namespace

std::unique_ptr<ZipLayer> LoadZipLayer(BinaryFiles &files, StagedFiles &stagedFiles) {
  return std::unique_ptr<ZipLayer>(Load()(files, stagedFiles));
}

} // namespace turfdesk
