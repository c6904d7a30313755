// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/ListView.h"
#include "platform/Platform.h"
#include "platform/Screen.h"
#include "support/JobProgress.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace turfdesk {

/// Values of ActiveList: which list of the main window the commands act on.
inline constexpr std::int32_t ActiveCourses = 1;
inline constexpr std::int32_t ActiveLibraries = 2;

/// What the whole program shares. The entry point owns the one instance and hands it to the routines that need it;
/// Main fills it. References go to objects that outlive it.
struct SharedState {
  SharedState(Platform &usedPlatform, MessageBoxes &usedBoxes, Screen &usedScreen)
      : platform(usedPlatform), boxes(usedBoxes), screen(usedScreen) {}
  SharedState(const SharedState &) = delete;
  SharedState &operator=(const SharedState &) = delete;

  Platform &platform;
  MessageBoxes &boxes;
  Screen &screen;

  /// Both are null until Init has created them.
  std::unique_ptr<RegistryService> registryService;
  std::unique_ptr<FileService> fileService;

  /// Kind of value that the settings-tree helpers read and write: 1 integers, any other number strings.
  std::int32_t registryValueKind = 2;
  std::int32_t activeList = ActiveCourses;
  /// Keys of courses and libraries that may not be compressed.
  std::vector<std::string> noCompressCourses;
  std::vector<std::string> noCompressLibraries;
  /// The file that the program was started with, emptied by the form that takes it up.
  std::string commandFile;
  /// The others, where it was started with several; emptied with it.
  std::vector<std::string> furtherCommandFiles;
  /// Root of the game's own folders.
  std::string installDir;
  /// Where the pickers of the dialogs start.
  std::string defaultDir;
  std::string courseDownload;
  std::string workingAvi;
  /// Words of the last failed copy or delete. It means something only right after a false result.
  std::string lastFileError;
  /// The value that QueryValue fetched last.
  std::string registryResult;

  /// What was installed last, for the window to show; in no list while there is nothing to show. A course counts more
  /// than the libraries that come with it.
  struct InstalledItem {
    /// A value of ActiveList, or 0.
    std::int32_t list = 0;
    std::string key;
  };
  InstalledItem installed;

  /// Where a copy tells how far it has come. The work that is shown sets it; null is nobody.
  JobProgress *workProgress = nullptr;

  /// The rows of the main window's two lists: the working copy of the catalogue.
  ListView lstCourses;
  /// False while a catalogued course is missing from lstCourses, which then does not tell all that uses a library.
  bool allCoursesListed = true;
  /// Why the files of these courses, by key, could not be read when their rows were filled, though they may be there.
  /// The rows name no libraries, but the courses may use some.
  std::map<std::string, std::string, std::less<>> coursesOutOfReach;
  ListView lstLibraries;
  /// Commands that hold on to rows at this moment: the lists are not to be loaded anew.
  int commandsAtWork = 0;
};

/// Root of the settings tree that everything but the file types lies under.
inline constexpr const char *LocalMachine = "HKEY_LOCAL_MACHINE";

} // namespace turfdesk
