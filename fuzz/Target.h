// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/HostileFiles.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// A fuzz target is a source file that defines Examine and Seeds. It is built with one of two mains: libFuzzer, which
/// makes the bytes up, or SeedDriver.cpp, which runs the seeds alone.
namespace turfdesk::fuzz {

/// Feeds any bytes to the program. Ends the process when the program does not do with them what it has to.
void Examine(std::span<const std::uint8_t> bytes);

/// Bytes to begin with, so that the inside of the format is reached at once.
std::vector<samples::HostileFile> Seeds();

/// Ends the process, telling what does not hold, unless it does.
void Require(bool holds, std::string_view what);

} // namespace turfdesk::fuzz
