// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/StringTable.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <array>

namespace turfdesk {

namespace {

struct Entry {
  StringId id;
  const char *text;
};

// In the order of the ids, so that a text is found by halving.
constexpr std::array Table = {
    Entry{StringId::CourseAloneUsesLibrary,
          "This course uses the following library which is not being used by any other course."},
    Entry{StringId::WishToMove, "Do you wish to move it?"},
    Entry{StringId::WishToDelete, "Do you wish to delete it?"},
    Entry{StringId::LibraryUsedByCourses, "This library is used by the following course(s)."},
    Entry{StringId::WishToContinue, "Do you wish to continue?"},
    Entry{StringId::LibrariesNotFound, "The following required libraries were not found."},
    Entry{StringId::FileExistsReplace, "File already exists. Do you wish to replace?"},
    Entry{StringId::CourseDifferentDirectory, "This course needs to be installed in a different directory."},
    Entry{StringId::UnableToInstallCourseFile, "Unable to install course file."},
    Entry{StringId::LibraryDifferentDirectory, "This library needs to be installed in a different directory."},
    Entry{StringId::UnableToInstallLibraryFile, "Unable to install library file."},
    Entry{StringId::CompressFilenameInvalid, "Compress filename is invalid. Please select a valid filename."},
    Entry{StringId::CourseFileMissing, "Course file does not exist."},
    Entry{StringId::FileMissingContinueCompressing,
          "File does not exist. Do you wish to continue compressing without this file?"},
    Entry{StringId::LibraryMissingContinueCompressing,
          "Library files does not exist. Do you wish to continue compressing without this library?"},
    Entry{StringId::CompressDone, "Course files have been successfully compressed."},
    Entry{StringId::CompressFailed, "Error compressing course files."},
    Entry{StringId::InstallDone, "Install completed successfully."},
    Entry{StringId::PackageWithoutCourse, "Compressed file does not contain a course file."},
    Entry{StringId::PackageWithManyCourses, "Compressed file contains more than one course file."},
    Entry{StringId::UnableToInstallCourseFiles, "Unable to install course files."},
    Entry{StringId::NoCourses, "No courses installed."},
    Entry{StringId::NoLibraries, "No libraries installed."},
    Entry{StringId::SureToClearStatistics, "Are you sure you want to clear the statistics for the following course?"},
    Entry{StringId::StatisticsCleared, "Statistics have been cleared."},
    Entry{StringId::UnableToClearStatistics, "Unable to clear statistics."},
    Entry{StringId::SureToDeleteCourse,
          "Are you sure you want to delete the following course and it's associated files?"},
    Entry{StringId::CourseUninstalled, "Course was successfully uninstalled."},
    Entry{StringId::UnableToUninstallCourse, "Unable to uninstall course."},
    Entry{StringId::SureToDeleteLibrary,
          "Are you sure you want to delete the following library and it's associated files?"},
    Entry{StringId::LibraryUninstalled, "Library was successfully uninstalled."},
    Entry{StringId::UnableToUninstallLibrary, "Unable to uninstall library."},
    Entry{StringId::NothingSelected, "No course or library has been selected."},
    Entry{StringId::Moved, "Successfully moved"},
    Entry{StringId::MoveFailed, "Move failed."},
    Entry{StringId::UnableToSavePicture, "Unable to save picture settings."},
    Entry{StringId::UnableToSaveMusic, "Unable to save music settings."},
    Entry{StringId::UnableToSaveVideo, "Unable to save video settings."},
    Entry{StringId::Title, "Turf Desk"},
    Entry{StringId::SelectCoursePackage, "Select Course Package"},
    Entry{StringId::CoursePackage, "Course Package"},
    Entry{StringId::AllFiles, "All Files"},
    Entry{StringId::Compress, "Compress"},
    Entry{StringId::Move, "Move"},
    Entry{StringId::CourseProperties, "Course Properties"},
    Entry{StringId::LibraryProperties, "Library Properties"},
    Entry{StringId::SelectPicture, "Select Picture"},
    Entry{StringId::Pictures, "Pictures"},
    Entry{StringId::SelectMusic, "Select Music"},
    Entry{StringId::Music, "Music"},
    Entry{StringId::SelectVideo, "Select Video"},
    Entry{StringId::Videos, "Videos"},
    Entry{StringId::FileMissingContinue, "File does not exist. Do you wish to continue?"},
    Entry{StringId::Error, "Error"},
    Entry{StringId::InstallFailed, "Install failed."},
    Entry{StringId::To, "to"},
    Entry{StringId::Course, "Course"},
    Entry{StringId::Library, "Library"},
    Entry{StringId::CourseExistsReplace, "Course already exists. Do you wish to replace?"},
    Entry{StringId::LibraryExistsReplace, "Library already exists. Do you wish to replace?"},
    Entry{StringId::NoFilesSelected, "No files have been selected. Please select a file to install."},
    Entry{StringId::WishToDeletePicture, "Do you wish to delete this picture file?"},
    Entry{StringId::WishToDeleteMusic, "Do you wish to delete this music file?"},
    Entry{StringId::WishToDeleteVideo, "Do you wish to delete this video file?"},
    Entry{StringId::CourseNotCompressible, "This course can not be compressed."},
    Entry{StringId::LibraryNotCompressible, "This library can not be compressed."},
    Entry{StringId::SelectText, "Select Text"},
    Entry{StringId::Text, "Text"},
    Entry{StringId::UnableToSaveText, "Unable to save text settings."},
    Entry{StringId::NotReadOnlyTryAgain, "Make sure the file is not read only and try again."},
    Entry{StringId::RequiredLibrariesUnchecked,
          "Libraries necessary for this course to run have not been selected for compression.  If a person installing "
          "this course doesn't have these libraries he will not be able to play the course.  Do you want to continue?"},
    Entry{StringId::ServicesUnregistered, "Necessary dll's have been unregistered.\\nTurf Desk will attempt to restore "
                                          "them.\\nPlease restart Turf Desk."},
};

} // namespace

std::string LoadResString(StringId id) {
  const auto *found = std::lower_bound(Table.begin(), Table.end(), id,
                                       [](const Entry &entry, StringId wanted) { return entry.id < wanted; });
  if (found == Table.end() || found->id != id)
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return found->text;
}

} // namespace turfdesk
