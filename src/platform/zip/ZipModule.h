// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/StagedFile.h"
#include "platform/ZipLayer.h"

namespace turfdesk {

/// What the zip layer's module offers, and the name under which it does. The result is the caller's to delete.
using MakeZipLayerFunction = ZipLayer *(BinaryFiles &files, StagedFiles &stagedFiles);
inline constexpr const char *MakeZipLayerName = "TurfDeskMakeZipLayer";

} // namespace turfdesk
