// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/StagedFile.h"
#include "platform/ZipLayer.h"

#include <memory>

namespace turfdesk {

/// A zip layer that reads and writes archives with libzip and reaches files only through the two contracts, which
/// must outlive it. docs/zip-status.md tells which fault gives which status.
std::unique_ptr<ZipLayer> MakeLibzipLayer(BinaryFiles &files, StagedFiles &stagedFiles);

} // namespace turfdesk
