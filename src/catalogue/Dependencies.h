// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "support/SharedState.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

// Which course uses which library. The answers come from the Libraries column of the course rows, never from a file.
// Keys are compared exactly.

/// Does a course other than courseKey list the library?
bool LibraryUsedByOtherCourse(SharedState &state, std::string_view libraryKey, std::string_view courseKey);

/// Is the library catalogued, and used by no course but this one? False, too, while not all courses are known.
bool IsOrphanOfCourse(SharedState &state, std::string_view libraryKey, std::string_view courseKey);

/// Names of the courses that use the library, in row order. Replaces what names held and gives the number.
std::int32_t ListCoursesUsingLibrary(const ListView &courses, std::vector<std::string> &names,
                                     std::string_view libraryKey);

/// Fills the list with a row for each library that the course lists, in its order: Key and Tag the library's key, Text
/// its name, column 1 its file, both "" for a library that is not catalogued. Gives the number of rows. A course that
/// names one library twice is RuntimeError 35602.
std::int32_t ListLibrariesInCourse(SharedState &state, const Row &course, ListView &libraries);

/// Asks the user about each library of the list that is an orphan of the course when its turn comes, and calls a
/// routine with those that he agrees to. question is such as "Do you wish to delete it?". Courses that could not be
/// read are named before the first one, since they may use it. mayGoOn is asked before each question and after a Yes;
/// false from it ends the offers, and is the result.
bool OfferOrphans(SharedState &state, std::string_view courseKey, std::string_view libraryList,
                  std::string_view question, const std::function<bool()> &mayGoOn,
                  const std::function<void(const std::string &libraryKey)> &agreed);

} // namespace turfdesk
