// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <string>

namespace turfdesk {

/// Ids of the string table. The numbers are fixed, with gaps.
enum class StringId : std::int16_t {
  CourseAloneUsesLibrary = 101,
  WishToMove = 102,
  WishToDelete = 103,
  LibraryUsedByCourses = 104,
  WishToContinue = 105,
  LibrariesNotFound = 106,
  FileExistsReplace = 107,
  CourseDifferentDirectory = 108,
  UnableToInstallCourseFile = 109,
  LibraryDifferentDirectory = 110,
  UnableToInstallLibraryFile = 111,
  CompressFilenameInvalid = 112,
  CourseFileMissing = 113,
  FileMissingContinueCompressing = 114,
  LibraryMissingContinueCompressing = 115,
  CompressDone = 116,
  CompressFailed = 117,
  InstallDone = 118,
  PackageWithoutCourse = 119,
  PackageWithManyCourses = 120,
  UnableToInstallCourseFiles = 121,
  NoCourses = 122,
  NoLibraries = 123,
  SureToClearStatistics = 124,
  StatisticsCleared = 125,
  UnableToClearStatistics = 126,
  SureToDeleteCourse = 127,
  CourseUninstalled = 128,
  UnableToUninstallCourse = 129,
  SureToDeleteLibrary = 130,
  LibraryUninstalled = 131,
  UnableToUninstallLibrary = 132,
  NothingSelected = 133,
  Moved = 134,
  MoveFailed = 135,
  UnableToSavePicture = 136,
  UnableToSaveMusic = 137,
  UnableToSaveVideo = 138,
  Title = 139,
  SelectCoursePackage = 140,
  CoursePackage = 141,
  AllFiles = 142,
  Compress = 147,
  Move = 148,
  CourseProperties = 149,
  LibraryProperties = 150,
  SelectPicture = 152,
  Pictures = 153,
  SelectMusic = 154,
  Music = 155,
  SelectVideo = 156,
  Videos = 157,
  FileMissingContinue = 158,
  Error = 159,
  InstallFailed = 160,
  To = 161,
  Course = 162,
  Library = 163,
  CourseExistsReplace = 164,
  LibraryExistsReplace = 165,
  NoFilesSelected = 166,
  WishToDeletePicture = 167,
  WishToDeleteMusic = 168,
  WishToDeleteVideo = 169,
  CourseNotCompressible = 170,
  LibraryNotCompressible = 171,
  SelectText = 172,
  Text = 173,
  UnableToSaveText = 174,
  NotReadOnlyTryAgain = 175,
  RequiredLibrariesUnchecked = 176,
  ServicesUnregistered = 177,
};

/// The text of an id. Texts are used as they stand. Throws RuntimeError 9 for an id that the table lacks.
std::string LoadResString(StringId id);

} // namespace turfdesk
