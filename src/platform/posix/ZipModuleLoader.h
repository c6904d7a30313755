// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/StagedFile.h"
#include "platform/ZipLayer.h"

#include <memory>

namespace turfdesk {

/// The zip layer from its module, which is loaded the first time: what it brings along takes a tenth of the time in
/// which the program starts, and most starts need no package. The module lies beside the program or in
/// ../lib/turfdesk. Throws RuntimeError 53 with the reason when it cannot be loaded.
std::unique_ptr<ZipLayer> LoadZipLayer(BinaryFiles &files, StagedFiles &stagedFiles);

} // namespace turfdesk
