// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "platform/StatusWindow.h"
#include "support/SharedState.h"

#include <array>
#include <string>
#include <vector>

namespace turfdesk {

/// What a package is to be made of. Paths are full Windows paths.
struct CompressRequest {
  struct Library {
    std::string path;
    bool checked = true;
  };

  std::string packageName;
  std::string courseFile;
  /// Picture, music, video and text; "" for none. The video slot stays empty: no package carries the video.
  std::array<std::string, 4> media;
  /// In the order of the list; an unchecked one is left out without a question.
  std::vector<Library> libraries;
};

// What a user reviews before a package is written. course is a row of lstCourses; libraries is a list of its libraries,
// whose check boxes say which go in.

/// May the course be packed at all? One that may not is told to the user. A row that was filled while the course could
/// not be read is filled anew where that can be done by now.
bool CourseMayBeCompressed(SharedState &state, Row &course);

/// Caption of the review of a course.
std::string CompressCaption(const Row &course);

/// The request for a course as a user finds it before changing anything: the package beside the course file, all
/// libraries checked. libraries is filled with the course's libraries, which have check boxes where there are any.
/// A course that names one library twice is RuntimeError 35602.
CompressRequest ProposeCompress(SharedState &state, const Row &course, ListView &libraries);

/// To be told of a library whose check box changed, either way. One that may not be packed is told to the user and
/// unchecked.
void LibraryCheckChanged(SharedState &state, Row &library);

/// Has a library been left out? The user is then asked, under UncheckedLibrariesTitle, whether to go on.
bool HasUncheckedLibrary(const ListView &libraries);
inline constexpr const char *UncheckedLibrariesTitle = "Required Libraries not Included";

/// Takes package contents from the rows of a library list: column 1 the path, and whether each is checked.
std::vector<CompressRequest::Library> LibrariesOf(const ListView &libraries);

/// Writes the package: checks its name, asks about replacing it and about missing files, and compresses. Everything is
/// told through the prompts; the verdict also stands in the window's route label. True when the package was written.
/// Run-time errors are passed over, except that a fault of the compressing itself counts as failure.
bool RunCompress(SharedState &state, const CompressRequest &request, StatusWindow &window);

} // namespace turfdesk
