// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/HostileFiles.h"

namespace turfdesk::fuzz {

/// Registry editor's files: each form of a line, and each way to spoil one.
std::vector<samples::HostileFile> RegistryFiles();

} // namespace turfdesk::fuzz
