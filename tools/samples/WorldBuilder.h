// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Platform.h"
#include "samples/GameFiles.h"

namespace turfdesk::samples {

/// Which media an installed course has, each a file beside it that bears its name.
struct CourseMedia {
  bool picture = false;
  bool music = false;
  bool video = false;
  bool text = false;
};

/// Puts files on a world's drive C: and gathers the catalogue's entries for them.
class WorldBuilder {
public:
  /// The home folder is made where it is missing. Windows has none: there the world is the system itself.
  explicit WorldBuilder(const std::filesystem::path &home);

  static constexpr std::string_view InstallDir = "C:\\Games\\Marrowfell 2002";
  /// Where browsing for courses to convert starts.
  static constexpr std::string_view OldCourses = "C:\\Old Courses";

  /// The host path of a file or folder on drive C:.
  std::filesystem::path OnDrive(std::string_view windowsPath) const;

  /// Has the world a game that is installed elsewhere?
  bool HasAnotherGame();
  /// Gives the game's own settings their values and makes its folders.
  void AddGame();
  /// Copies the two converters from a folder to the game's programs.
  void CopyConverters(const std::filesystem::path &from) const;
  /// Writes the library file and enters it. Gives the host path of the file.
  std::filesystem::path AddLibrary(const LibrarySpec &library);
  /// Enters a library whose file is not there.
  void AddLibraryWithoutFile(const LibrarySpec &library);
  /// Writes the course file, under the given file name without extension, and its media, and enters them.
  void AddCourse(const CourseSpec &course, const std::string &baseName, const CourseMedia &media);
  /// Enters a course none of whose files is there.
  void AddCourseWithoutFiles(const CourseSpec &course, const std::string &baseName, const CourseMedia &media);
  /// Enter the course's name, or one of its files (under the value name "Filename", "Picture", "Music", "AVI" or
  /// "Text"), for courses that are put together by hand. Nothing is written.
  void SetName(const CourseSpec &course);
  void SetCourseFile(const CourseSpec &course, std::string_view valueName, const std::string &windowsPath);
  /// The game's own files about a course and a library, found by key.
  void AddStatistics(const CourseSpec &course);
  void AddSwapFile(const LibrarySpec &library);

  /// Writes all entries, in one go, and forgets them. Until then the settings tree is as it was. Throws RuntimeError.
  void WriteCatalogue();

private:
  void Enter(const std::string &keyPath, std::string_view valueName, const std::string &value);
  void EnterCourse(const CourseSpec &course, const std::string &basePath, const CourseMedia &media);
  void EnterLibrary(const LibrarySpec &library, const std::string &path);
  void WriteMedia(const CourseSpec &course, const std::string &basePath, const CourseMedia &media);

  std::unique_ptr<Platform> mPlatform;
  std::filesystem::path mDrive;
  std::vector<RegistryChange> mEntries;
};

/// A few seconds of film.
Bytes FilmBytes();

} // namespace turfdesk::samples
