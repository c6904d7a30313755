// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "common/TestWorld.h"
#include "samples/GameFiles.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace turfdesk::test {

/// What a golf world has, by name.
struct GolfContent {
  const samples::LibrarySpec grass{.name = "Grass"};
  const samples::LibrarySpec trees{.name = "Trees"};
  const samples::LibrarySpec water{.name = "Water"};
  const samples::LibrarySpec moss{.name = "Moss"};
  const samples::LibrarySpec sand{.name = "Sand"};
  const samples::CourseSpec elm{.name = "Old Elm", .libraries = {grass, trees, water}};
  const samples::CourseSpec oak{.name = "Oak", .libraries = {water}};
  const samples::CourseSpec birch{.name = "Birch", .libraries = {moss, sand}};

  const std::string elmKey = samples::KeyOf(elm);
  const std::string oakKey = samples::KeyOf(oak);
  const std::string grassKey = samples::KeyOf(grass);
  const std::string treesKey = samples::KeyOf(trees);
  const std::string waterKey = samples::KeyOf(water);
};

/// A ground with something of everything, each file with a content of its own.
///
/// Installed from C:\Golf: the course Old Elm (Elm.hlc) with music, video and text beside it and its picture in
/// C:\Media, with statistics and swap files of the game; its libraries Grass and Trees, which it uses alone, and Water,
/// which it shares with the course Oak. A package of an older Old Elm lies beside it.
/// Not installed: in C:\Downloads the course Birch, its library Moss, and it all as a package with media; in C:\New
/// later versions of Elm.hlc and Grass.hlb, and a package of them with media. C:\Taken has files with the names of
/// Old Elm's, C:\Other and C:\Temp are empty.
class GolfHome {
public:
  GolfHome();

  const std::filesystem::path &Path() const { return mHome.Path(); }
  std::map<std::string, std::string> Files() const { return FilesOnDrive(Path()); }

private:
  WorldHome mHome;
};

/// A program started on a golf world, with its lists loaded and C:\Temp for temporary files.
class GolfProgram : public TestProgram, public GolfContent {
public:
  explicit GolfProgram(const std::filesystem::path &home);

  Row &Course(const std::string &key) { return *state.lstCourses.FindKey(key); }
  Row &Library(const std::string &key) { return *state.lstLibraries.FindKey(key); }

  /// Answers questions with these, then as decide says.
  void Answer(const std::vector<bool> &answers) { boxes.answers = {answers.begin(), answers.end()}; }
  /// Paths of files and names of keys that were deleted since the last call, in order.
  std::vector<std::string> TakeDeleted() { return std::exchange(mDeleted, {}); }

  FaultyRegistry &registry = FaultyRegistry::Install(state);
  WatchedFiles &files = WatchedFiles::Install(state);

private:
  std::vector<std::string> mDeleted;
};

class GolfWorld : private GolfHome, public GolfProgram {
public:
  GolfWorld() : GolfProgram(Path()) {}
};

} // namespace turfdesk::test
