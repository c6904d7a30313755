// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Archive.h"
#include "Target.h"

#include "samples/Packages.h"

namespace turfdesk::fuzz {

void Examine(std::span<const std::uint8_t> bytes) { ExamineArchive(bytes); }

std::vector<samples::HostileFile> Seeds() {
  std::vector<samples::HostileFile> seeds = samples::HostilePackages();
  // Told honestly, and more than there is room for.
  seeds.push_back({"grows.hlz", samples::PackageBytes({{"Elm.hlc", samples::Bytes(Room + 1)}})});
  return seeds;
}

} // namespace turfdesk::fuzz
