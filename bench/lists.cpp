// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// How long the two lists of the main window take to load.

#include "Measure.h"
#include "NoWindows.h"
#include "catalogue/LoadLists.h"
#include "platform/Platform.h"
#include "samples/World.h"
#include "shell/Main.h"
#include "support/SharedState.h"

#include <array>
#include <fcntl.h>
#include <map>
#include <stdexcept>
#include <unistd.h>

namespace turfdesk::bench {

namespace {

/// A started program over a world of so many courses of three libraries.
class LoadedWorld {
public:
  LoadedWorld(const std::filesystem::path &home, std::size_t courses) : mCourses(courses) {
    samples::WorldSpec spec{.home = home, .courses = courses};
    spec.fileSize = 8192;
    spec.downloads = false;
    samples::MakeWorld(spec);
    mPlatform = MakePlatform(home.string());
    mState = std::make_unique<SharedState>(*mPlatform, mBoxes, mScreen);
    if (!Main(*mState, ""))
      throw std::runtime_error("the program does not start");
    Load();
    mCourseFiles = FilesOf(mState->lstCourses);
    mAllFiles = mCourseFiles;
    const std::vector<std::string> libraryFiles = FilesOf(mState->lstLibraries);
    mAllFiles.insert(mAllFiles.end(), libraryFiles.begin(), libraryFiles.end());
  }

  void Load() {
    LoadCourses(*mState);
    LoadLibraries(*mState);
    if (mState->lstCourses.Count() != mCourses || mState->lstLibraries.Count() < mCourses)
      throw std::runtime_error("the lists are not complete");
  }

  void LoadWithNewService() {
    mState->registryService.reset();
    mState->registryService = mPlatform->CreateRegistryService();
    Load();
  }

  /// The baseline: a look at the files of both lists.
  void ReadHeads() { ReadFiles(mAllFiles); }
  /// Less than the load can do with, which looks at the library files as well.
  void ReadCourseHeads() { ReadFiles(mCourseFiles); }

private:
  /// In the order in which the load comes by them: how far apart files lie has a price of its own.
  std::vector<std::string> FilesOf(const ListView &list) const {
    std::map<std::string, std::string> byKey;
    for (std::size_t i = 0; i < list.Count(); ++i)
      byKey[list.At(i).Key()] = mPlatform->ToHostPath(list.At(i).SubItems(1));
    std::vector<std::string> files;
    files.reserve(byKey.size());
    for (const auto &[key, path] : byKey)
      files.push_back(path);
    return files;
  }

  static void ReadFiles(const std::vector<std::string> &files) {
    std::array<char, 4096> head;
    for (const std::string &path : files) {
      const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
      const bool whole = file >= 0 && read(file, head.data(), head.size()) == static_cast<ssize_t>(head.size());
      close(file);
      if (!whole)
        throw std::runtime_error("cannot read " + path);
    }
  }

  std::size_t mCourses;
  NoBoxes mBoxes;
  NoScreen mScreen;
  std::unique_ptr<Platform> mPlatform;
  std::unique_ptr<SharedState> mState;
  std::vector<std::string> mCourseFiles;
  std::vector<std::string> mAllFiles;
};

// Loads are short and vary more than other things do.
int Rounds(const Options &options) { return 4 * options.rounds; }

void CompareWithBareLoop(LoadedWorld &world, std::size_t courses, const Options &options) {
  const std::string count = std::to_string(courses) + " courses";
  const auto bare = [&] { return Seconds([&] { world.ReadHeads(); }); };
  const auto load = [&] { return Seconds([&] { world.Load(); }); };
  Report("load both lists, " + count, "open, read 4 KiB, close", Compare(load, bare, Rounds(options)),
         Unit::Milliseconds, 2.0);
  const auto bareCourses = [&] { return Seconds([&] { world.ReadCourseHeads(); }); };
  Report("  against the course files alone", "open, read 4 KiB, close", Compare(load, bareCourses, Rounds(options)),
         Unit::Milliseconds, 0);
  const auto start = [&] { return Seconds([&] { world.LoadWithNewService(); }); };
  Report("  with opening of the settings", "open, read 4 KiB, close", Compare(start, bare, Rounds(options)),
         Unit::Milliseconds, 0);
}

using Worlds = std::vector<std::unique_ptr<LoadedWorld>>;

// Small worlds are worked on until it is as many courses as the large one has. With a new one each time both sides come
// upon files and settings that the processor's caches no longer hold, so that what grows is ours; with the same one
// again and again they stay there, which is shown as well, and also for the bare loop.
void CompareGrowth(const Worlds &small, LoadedWorld &large, const Options &options) {
  const auto compare = [&](void (LoadedWorld::*work)(), bool sameWorld) {
    const auto largeOnce = [&] { return Seconds([&] { (large.*work)(); }); };
    const auto smallOnes = [&] {
      return Seconds([&] {
        for (const auto &world : small)
          ((sameWorld ? *small.front() : *world).*work)();
      });
    };
    return Compare(largeOnce, smallOnes, Rounds(options));
  };
  const std::string times = std::to_string(small.size());
  Report("load " + times + " times the courses", times + " small worlds", compare(&LoadedWorld::Load, false),
         Unit::Milliseconds, 1.2);
  Report("  the same small world again", "one small world " + times + " times", compare(&LoadedWorld::Load, true),
         Unit::Milliseconds, 0);
  Report("  the bare loop alone", "one small world " + times + " times", compare(&LoadedWorld::ReadHeads, true),
         Unit::Milliseconds, 0);
}

void Run(const Options &options) {
  constexpr std::size_t growth = 20;
  const std::size_t least = options.quick ? 100 : 1000;
  WorkFolder folder(options.folder);
  Worlds small;
  for (std::size_t i = 0; i < growth; ++i)
    small.push_back(std::make_unique<LoadedWorld>(folder.NewFolder(), least));
  CompareWithBareLoop(*small.front(), least, options);
  {
    LoadedWorld medium(folder.NewFolder(), 10 * least);
    CompareWithBareLoop(medium, 10 * least, options);
  }
  LoadedWorld large(folder.NewFolder(), growth * least);
  CompareWithBareLoop(large, growth * least, options);
  CompareGrowth(small, large, options);
}

} // namespace

} // namespace turfdesk::bench

int main(int argc, char **argv) { return turfdesk::bench::RunBenchmark(argc, argv, turfdesk::bench::Run); }
