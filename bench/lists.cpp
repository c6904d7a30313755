// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// How long the two lists of the main window take to load.

#include "Measure.h"
#include "platform/Platform.h"
#include "samples/World.h"
#include "shell/LoadLists.h"
#include "shell/Main.h"
#include "support/SharedState.h"

#include <array>
#include <fcntl.h>
#include <map>
#include <stdexcept>
#include <unistd.h>

namespace turfdesk::bench {

namespace {

class NoBoxes final : public MessageBoxes {
public:
  BoxAnswer Show(const MessageBox &box) override { throw std::runtime_error(box.text); }
};

class NoScreen final : public Screen {
public:
  void DoEvents() override {}
  void Repaint() override {}
  void SetMousePointer(MousePointer) override {}
};

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
    // The order in which the load comes by them: how far apart files lie has a price of its own.
    std::map<std::string, std::string> files;
    for (std::size_t i = 0; i < mState->lstCourses.Count(); ++i)
      files[mState->lstCourses.At(i).Key()] = mPlatform->ToHostPath(mState->lstCourses.At(i).SubItems(1));
    for (const auto &[key, path] : files)
      mCourseFiles.push_back(path);
  }

  void Load() {
    LoadCourses(*mState);
    LoadLibraries(*mState);
    if (mState->lstCourses.Count() != mCourses || mState->lstLibraries.Count() < mCourses)
      throw std::runtime_error("the lists are not complete");
  }

  void LoadWithNewService() {
    mState->registryService = mPlatform->CreateRegistryService();
    Load();
  }

  /// The baseline: what no reader of these files can do without.
  void ReadHeads() {
    std::array<char, 4096> head;
    for (const std::string &path : mCourseFiles) {
      const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
      const bool whole = file >= 0 && read(file, head.data(), head.size()) == static_cast<ssize_t>(head.size());
      close(file);
      if (!whole)
        throw std::runtime_error("cannot read " + path);
    }
  }

private:
  std::size_t mCourses;
  NoBoxes mBoxes;
  NoScreen mScreen;
  std::unique_ptr<Platform> mPlatform;
  std::unique_ptr<SharedState> mState;
  std::vector<std::string> mCourseFiles;
};

// Loads are short and vary more than other things do.
int Rounds(const Options &options) { return 4 * options.rounds; }

void CompareWithBareLoop(LoadedWorld &world, std::size_t courses, const Options &options) {
  const std::string count = std::to_string(courses) + " courses";
  const auto bare = [&] { return Seconds([&] { world.ReadHeads(); }); };
  const auto load = [&] { return Seconds([&] { world.Load(); }); };
  Report("load both lists, " + count, "open, read 4 KiB, close", Compare(load, bare, Rounds(options)),
         Unit::Milliseconds, 2.0);
  const auto start = [&] { return Seconds([&] { world.LoadWithNewService(); }); };
  Report("  with opening of the settings", "open, read 4 KiB, close", Compare(start, bare, Rounds(options)),
         Unit::Milliseconds, 0);
}

// The small world is worked on as often as makes it as many courses as the large one. The bare loop is shown as well:
// what grows there is the price of memory that the processor's caches no longer hold.
void CompareGrowth(LoadedWorld &few, LoadedWorld &many, std::size_t factor, const Options &options) {
  const auto compare = [&](void (LoadedWorld::*work)()) {
    const auto manyOnce = [&] { return Seconds([&] { (many.*work)(); }); };
    const auto fewOften = [&] {
      return Seconds([&] {
        for (std::size_t i = 0; i < factor; ++i)
          (few.*work)();
      });
    };
    return Compare(manyOnce, fewOften, Rounds(options));
  };
  const std::string times = std::to_string(factor) + " times";
  Report("load " + times + " the courses", "load the small world " + times, compare(&LoadedWorld::Load),
         Unit::Milliseconds, 1.2);
  Report("  the bare loop alone", "the small world " + times, compare(&LoadedWorld::ReadHeads), Unit::Milliseconds, 0);
}

void Run(const Options &options) {
  const std::size_t least = options.quick ? 100 : 1000;
  WorkFolder folder(options.folder);
  LoadedWorld small(folder.NewFolder(), least);
  CompareWithBareLoop(small, least, options);
  {
    LoadedWorld medium(folder.NewFolder(), 10 * least);
    CompareWithBareLoop(medium, 10 * least, options);
  }
  LoadedWorld large(folder.NewFolder(), 20 * least);
  CompareWithBareLoop(large, 20 * least, options);
  CompareGrowth(small, large, 20, options);
}

} // namespace

} // namespace turfdesk::bench

int main(int argc, char **argv) { return turfdesk::bench::RunBenchmark(argc, argv, turfdesk::bench::Run); }
