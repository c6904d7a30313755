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
using Run = std::function<bool(GolfProgram &)>;

constexpr const char *Downloads = R"(C:\Downloads)";
constexpr const char *New = R"(C:\New)";
constexpr const char *Golf = R"(C:\Golf)";
constexpr const char *Other = R"(C:\Other)";
constexpr const char *Taken = R"(C:\Taken)";

Run Install(const char *folder, const char *name, const char *destination) {
  return [=](GolfProgram &program) { return RunInstall(program.state, {folder, destination, {name}}, program.window); };
}

/// Makes Old Elm, or Grass, the row that is acted on.
Row &Activate(GolfProgram &program, std::int32_t which) {
  ActivateList(program.state, which);
  const bool isCourse = which == ActiveCourses;
  Row &row = isCourse ? program.Course(program.elmKey) : program.Library(program.grassKey);
  (isCourse ? program.state.lstCourses : program.state.lstLibraries).Select(&row);
  return row;
}

Run Move(std::int32_t which, const char *destination) {
  return [=](GolfProgram &program) {
    return RunMove(program.state, {&Activate(program, which), destination}, program.window);
  };
}

Run Uninstall(std::int32_t which) {
  return [=](GolfProgram &program) {
    Activate(program, which);
    return UninstallSelected(program.state);
  };
}

Run Compress(const char *package) {
  return [=](GolfProgram &program) {
    ListView libraries;
    CompressRequest request = ProposeCompress(program.state, program.Course(program.elmKey), libraries);
    request.packageName = package;
    return RunCompress(program.state, request, program.window);
  };
}

std::vector<Command> MakeCommands() {
  const test::GolfContent content;
  const std::string elmStatistics = "QuillonGolf/Courses/" + content.elmKey + ".sta";
  const std::string grassSwapFile = "QuillonGolf/SwapFiles/" + content.grassKey + ".swp";
  const std::string treesSwapFile = "QuillonGolf/SwapFiles/" + content.treesKey + ".swp";
  constexpr bool isBroad = true;
  return {
      {"InstallCourse", Work::Install, Install(Downloads, "Birch.hlc", Golf)},
      {"InstallCourseInPlace", Work::Install, Install(Downloads, "Birch.hlc", Downloads)},
      {"InstallCourseOver", Work::Install, Install(New, "Elm.hlc", Golf), {"Golf/Elm.hlc"}},
      {"InstallLibrary", Work::Install, Install(Downloads, "Moss.hlb", Golf)},
      {"InstallLibraryOver", Work::Install, Install(New, "Grass.hlb", Golf), {"Golf/Grass.hlb"}},
      {"InstallPackage", Work::Install, Install(Downloads, "Birch.hlz", Other), {}, isBroad},
      {"InstallPackageOver",
       Work::Install,
       Install(New, "Elm.hlz", Golf),
       {"Golf/Elm.avi", "Golf/Elm.hlc", "Golf/Elm.mp3", "Golf/Elm.txt", "Golf/Grass.hlb"},
       isBroad},
      {"MoveCourse", Work::Move, Move(ActiveCourses, Other), {}, isBroad},
      {"MoveCourseOver",
       Work::Move,
       Move(ActiveCourses, Taken),
       {"Taken/Elm.avi", "Taken/Elm.bmp", "Taken/Elm.hlc", "Taken/Elm.mp3", "Taken/Elm.txt", "Taken/Grass.hlb",
        "Taken/Trees.hlb"}},
      {"MoveLibrary", Work::Move, Move(ActiveLibraries, Other)},
      {"UninstallCourse",
       Work::Uninstall,
       Uninstall(ActiveCourses),
       {"Golf/Elm.avi", "Golf/Elm.hlc", "Golf/Elm.mp3", "Golf/Elm.txt", "Golf/Grass.hlb", "Golf/Trees.hlb",
        "Media/Elm.bmp", elmStatistics, grassSwapFile, treesSwapFile}},
      {"UninstallLibrary", Work::Uninstall, Uninstall(ActiveLibraries), {"Golf/Grass.hlb", grassSwapFile}},
      {"Compress", Work::Compress, Compress(R"(C:\Other\Elm.hlz)")},
      {"CompressOver", Work::Compress, Compress(R"(C:\Golf\Elm.hlz)"), {"Golf/Elm.hlz"}, isBroad},
  };
}

} // namespace

const std::vector<Command> &Commands() {
  static const std::vector<Command> commands = MakeCommands();
  return commands;
}

std::vector<Command> BroadestCommands() {
  std::vector<Command> broadest;
  std::ranges::copy_if(Commands(), std::back_inserter(broadest), &Command::isBroad);
  return broadest;
}

} // namespace turfdesk
