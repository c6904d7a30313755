// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/ZipModuleLoader.h"

#include "platform/RuntimeError.h"
#include "platform/posix/ProgramFile.h"
#include "platform/zip/ZipModule.h"

#include <dlfcn.h>

namespace turfdesk {

namespace {

constexpr const char *ModuleName = "turfdesk-zip.so";

MakeZipLayerFunction *Load() {
  // Never unloaded: the layers that it makes are code of it.
  void *module = dlopen((ProgramFile().parent_path() / ModuleName).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
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
