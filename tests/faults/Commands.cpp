// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Commands.h"

#include "catalogue/Selection.h"
#include "install/RunInstall.h"
#include "manage/Move.h"
#include "manage/Uninstall.h"
#include "packaging/RunCompress.h"

#include <algorithm>
#include <iterator>

namespace turfdesk {

namespace {

using test::GolfProgram;

bool Install(GolfProgram &program, const char *folder, const char *name, const char *destination) {
  return RunInstall(program.state, {folder, destination, {name}}, program.window);
}

bool Move(GolfProgram &program, Row &row, std::int32_t list, const char *destination) {
  program.state.activeList = list;
  return RunMove(program.state, {&row, destination}, program.window);
}

bool Uninstall(GolfProgram &program, Row &row, ListView &list, std::int32_t which) {
  ActivateList(program.state, which);
  list.Select(&row);
  return UninstallSelected(program.state);
}

bool Compress(GolfProgram &program, const char *package) {
  ListView libraries;
  CompressRequest request = ProposeCompress(program.state, program.Course(program.elmKey), libraries);
  request.packageName = package;
  return RunCompress(program.state, request, program.window);
}

} // namespace

const std::vector<Command> &Commands() {
  static const test::GolfContent content;
  static const std::string elmStatistics = "QuillonGolf/Courses/" + content.elmKey + ".sta";
  static const std::string grassSwapFile = "QuillonGolf/SwapFiles/" + content.grassKey + ".swp";
  static const std::string treesSwapFile = "QuillonGolf/SwapFiles/" + content.treesKey + ".swp";
  static const std::vector<Command> commands = {
      {"InstallCourse", Work::Install,
       [](GolfProgram &p) { return Install(p, R"(C:\Downloads)", "Birch.hlc", R"(C:\Golf)"); }},
      {"InstallCourseInPlace", Work::Install,
       [](GolfProgram &p) { return Install(p, R"(C:\Downloads)", "Birch.hlc", R"(C:\Downloads)"); }},
      {"InstallCourseOver",
       Work::Install,
       [](GolfProgram &p) { return Install(p, R"(C:\New)", "Elm.hlc", R"(C:\Golf)"); },
       {"Golf/Elm.hlc"}},
      {"InstallLibrary", Work::Install,
       [](GolfProgram &p) { return Install(p, R"(C:\Downloads)", "Moss.hlb", R"(C:\Golf)"); }},
      {"InstallLibraryOver",
       Work::Install,
       [](GolfProgram &p) { return Install(p, R"(C:\New)", "Grass.hlb", R"(C:\Golf)"); },
       {"Golf/Grass.hlb"}},
      {"InstallPackage",
       Work::Install,
       [](GolfProgram &p) { return Install(p, R"(C:\Downloads)", "Birch.hlz", R"(C:\Other)"); },
       {},
       R"(install 'C:\Downloads\Birch.hlz' --to 'C:\Other')"},
      {"InstallPackageOver",
       Work::Install,
       [](GolfProgram &p) { return Install(p, R"(C:\New)", "Elm.hlz", R"(C:\Golf)"); },
       {"Golf/Elm.avi", "Golf/Elm.hlc", "Golf/Elm.mp3", "Golf/Elm.txt", "Golf/Grass.hlb"},
       R"(install 'C:\New\Elm.hlz' --to 'C:\Golf')"},
      {"MoveCourse",
       Work::Move,
       [](GolfProgram &p) { return Move(p, p.Course(p.elmKey), ActiveCourses, R"(C:\Other)"); },
       {},
       R"(move 'Old Elm' --to 'C:\Other')"},
      {"MoveCourseOver",
       Work::Move,
       [](GolfProgram &p) { return Move(p, p.Course(p.elmKey), ActiveCourses, R"(C:\Taken)"); },
       {"Taken/Elm.avi", "Taken/Elm.bmp", "Taken/Elm.hlc", "Taken/Elm.mp3", "Taken/Elm.txt", "Taken/Grass.hlb",
        "Taken/Trees.hlb"}},
      {"MoveLibrary", Work::Move,
       [](GolfProgram &p) { return Move(p, p.Library(p.grassKey), ActiveLibraries, R"(C:\Other)"); }},
      {"UninstallCourse",
       Work::Uninstall,
       [](GolfProgram &p) { return Uninstall(p, p.Course(p.elmKey), p.state.lstCourses, ActiveCourses); },
       {"Golf/Elm.avi", "Golf/Elm.hlc", "Golf/Elm.mp3", "Golf/Elm.txt", "Golf/Grass.hlb", "Golf/Trees.hlb",
        "Media/Elm.bmp", elmStatistics, grassSwapFile, treesSwapFile}},
      {"UninstallLibrary",
       Work::Uninstall,
       [](GolfProgram &p) { return Uninstall(p, p.Library(p.grassKey), p.state.lstLibraries, ActiveLibraries); },
       {"Golf/Grass.hlb", grassSwapFile}},
      {"Compress", Work::Compress, [](GolfProgram &p) { return Compress(p, R"(C:\Other\Elm.hlz)"); }},
      {"CompressOver",
       Work::Compress,
       [](GolfProgram &p) { return Compress(p, R"(C:\Golf\Elm.hlz)"); },
       {"Golf/Elm.hlz"},
       R"(compress 'Old Elm')"},
  };
  return commands;
}

std::vector<Command> BroadestCommands() {
  std::vector<Command> broadest;
  std::ranges::copy_if(Commands(), std::back_inserter(broadest),
                       [](const Command &command) { return *command.arguments != '\0'; });
  return broadest;
}

} // namespace turfdesk
