// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstddef>
#include <string>

namespace turfdesk::samples {

/// The invented name of the course or library with a number from 0; different numbers give different names. Some have
/// accents; all fit into a header's 40 bytes and name a file as they are.
std::string CourseName(std::size_t number);
std::string LibraryName(std::size_t number);

} // namespace turfdesk::samples
