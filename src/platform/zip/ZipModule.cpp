// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/ZipModule.h"

#include "platform/zip/LibzipLayer.h"

extern "C" __attribute__((visibility("default"))) turfdesk::ZipLayer *
TurfDeskMakeZipLayer(turfdesk::BinaryFiles &files, turfdesk::StagedFiles &stagedFiles) {
  return turfdesk::MakeLibzipLayer(files, stagedFiles).release();
}
