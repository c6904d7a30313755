// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"
#include "samples/RawZip.h"

namespace turfdesk::samples {

/// One file of a package to be made.
struct PackageEntry {
  /// The stored name. It is written as it is, whatever it holds.
  std::string name = {};
  Bytes content = {};
  /// Stored instead of deflated.
  bool stored = false;
};

/// A zip archive of these entries, in this order. Repeated and hostile names are not minded. Everything is held in
/// memory: at most 4 GB.
Bytes PackageBytes(const std::vector<PackageEntry> &entries);

/// Writes it to a file, as WriteFile does.
void WritePackage(const std::filesystem::path &path, const std::vector<PackageEntry> &entries);

/// The entry, compressed and with honest headers, for those who mean to bend them.
RawZipEntry ZipEntryOf(const PackageEntry &entry);

} // namespace turfdesk::samples
