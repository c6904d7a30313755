// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FileCopier.h"

#include <cstdint>

namespace turfdesk {

/// Brings the first totalBytes of one open file into another, empty one, both at their start. Throws RuntimeError when
/// a device fails or the disk is full. Gives the number of bytes copied, which is less only when the source ends early.
std::uint64_t CopyContent(int source, int destination, std::uint64_t totalBytes, const FileCopier::Report &report);

} // namespace turfdesk
