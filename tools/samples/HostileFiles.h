// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"

namespace turfdesk::samples {

/// A file that a careless reader stumbles over.
struct HostileFile {
  /// A file name that says what is the matter, such as "names-without-end.hlc".
  std::string filename = {};
  Bytes content = {};
  /// Does its header (or, of a package, its list) read without an error all the same?
  bool readable = false;
};

std::vector<HostileFile> HostileCourses();
std::vector<HostileFile> HostileLibraries();
std::vector<HostileFile> HostilePackages();

} // namespace turfdesk::samples
