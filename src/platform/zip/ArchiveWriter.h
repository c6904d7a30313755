// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/StagedFile.h"
#include "platform/ZipLayer.h"

namespace turfdesk {

/// Writes the archive that the layer's members ask for, telling the layer's handlers how it goes. Throws ZipFault, or
/// HandlerException; then nothing is left of the archive and what stood under its name is untouched.
void WriteArchive(BinaryFiles &files, StagedFiles &stagedFiles, const ZipLayer &layer);

} // namespace turfdesk
