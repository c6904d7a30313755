// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// How long it takes to write and to install a package of about 50 MB, and to install one of very many small files.

#include "samples/Packages.h"
#include "Child.h"
#include "HeavyCourse.h"
#include "Measure.h"
#include "samples/GameFiles.h"

namespace turfdesk::bench {

namespace {

constexpr std::uint64_t Megabyte = 1'000'000;

HeavySizes SizesOf(const Options &options) {
  if (options.quick)
    return {Megabyte / 2, Megabyte / 4, Megabyte / 4};
  return {14 * Megabyte, 7 * Megabyte, 13 * Megabyte};
}

/// Writes the package of the heavy course with our program and with zip.
class Writing {
public:
  Writing(const HeavyCourse &course, const std::filesystem::path &folder)
      : mCourse(course), mOurs(folder / "ours.hlz"), mTheirs(folder / "theirs.zip") {}

  double Ours() const {
    std::filesystem::remove(mOurs);
    SettleDisk();
    return RunChild({SiblingProgram("turfctl"), "--home", mCourse.home.string(), "--json", "--yes", "compress",
                     mCourse.key, "--output", mOurs.string()});
  }

  double Theirs() const {
    std::filesystem::remove(mTheirs);
    SettleDisk();
    std::vector<std::string> command = {"zip", "-6", "-q", "-j", mTheirs.string()};
    command.insert(command.end(), mCourse.files.begin(), mCourse.files.end());
    return RunChild(command);
  }

  Comparison Sizes() const {
    const auto ours = static_cast<double>(std::filesystem::file_size(mOurs));
    const auto theirs = static_cast<double>(std::filesystem::file_size(mTheirs));
    return {ours, theirs, ours / theirs};
  }

  const std::filesystem::path &Package() const { return mOurs; }

private:
  const HeavyCourse &mCourse;
  std::filesystem::path mOurs;
  std::filesystem::path mTheirs;
};

/// Installs the package, each time into a new folder.
class Installing {
public:
  Installing(const std::filesystem::path &package, WorkFolder &folder)
      : mPackage(package), mFolder(folder), mHome(folder.NewFolder()) {}

  double Ours() {
    const std::filesystem::path destination = mFolder.NewFolder();
    SettleDisk();
    const double seconds = RunChild({SiblingProgram("turfctl"), "--home", mHome.string(), "--json", "--yes", "install",
                                     mPackage.string(), "--to", destination.string()});
    std::filesystem::remove_all(destination);
    return seconds;
  }

  double Theirs() {
    const std::filesystem::path between = mFolder.NewFolder();
    const std::filesystem::path destination = mFolder.NewFolder();
    SettleDisk();
    // The shell takes the place of three starts from here. sync with names flushes these files alone.
    const double seconds = RunChild({"sh", "-c", "unzip -q \"$1\" -d \"$2\" && cp \"$2\"/* \"$3\" && sync \"$3\"/*",
                                     "sh", mPackage.string(), between.string(), destination.string()});
    std::filesystem::remove_all(between);
    std::filesystem::remove_all(destination);
    return seconds;
  }

private:
  std::filesystem::path mPackage;
  WorkFolder &mFolder;
  std::filesystem::path mHome;
};

/// Installs packages with a course and so many small libraries, each into a new folder of a new home.
class InstallingMany {
public:
  InstallingMany(WorkFolder &folder, int libraries)
      : mFolder(folder), mPackage(folder.NewFolder() / "many libraries.hlz") {
    std::vector<samples::PackageEntry> entries = {{"Many.hlc", samples::CourseBytes({.name = "Many"}), true}};
    for (int i = 0; i < libraries; ++i) {
      const std::string name = "Library " + std::to_string(i);
      entries.push_back({name + ".hlb", samples::LibraryBytes({.name = name, .size = 100}), true});
    }
    samples::WritePackage(mPackage, entries);
  }

  double Times(int times) {
    double seconds = 0;
    for (int i = 0; i < times; ++i) {
      const std::string home = mFolder.NewFolder().string();
      const std::filesystem::path destination = mFolder.NewFolder();
      SettleDisk();
      seconds += RunChild({SiblingProgram("turfctl"), "--home", home, "--json", "--yes", "install", mPackage.string(),
                           "--to", destination.string()});
      std::filesystem::remove_all(destination);
    }
    return seconds;
  }

private:
  WorkFolder &mFolder;
  std::filesystem::path mPackage;
};

void Run(const Options &options) {
  WorkFolder folder(options.folder);
  const HeavyCourse course = MakeHeavyCourse(folder.NewFolder(), SizesOf(options));
  const Writing writing(course, folder.NewFolder());
  const Comparison written = Compare([&] { return writing.Ours(); }, [&] { return writing.Theirs(); }, options.rounds);
  Report("write a package of 50 MB", "zip -6 of the same files", written, Unit::Milliseconds, 0.85);
  Report("  its size", "zip -6 of the same files", writing.Sizes(), Unit::Mebibytes, 1.01);

  Installing installing(writing.Package(), folder);
  const Comparison installed =
      Compare([&] { return installing.Ours(); }, [&] { return installing.Theirs(); }, options.rounds);
  Report("install the package", "unzip, cp, flush", installed, Unit::Milliseconds, 1.05);

  const int few = options.quick ? 20 : 1'000;
  constexpr int factor = 20;
  InstallingMany largeOne(folder, factor * few);
  InstallingMany smallOne(folder, few);
  // Long enough by itself for one round to do.
  Report("install a package of 20,000 libraries", "20 times one of 1,000",
         Compare([&] { return largeOne.Times(1); }, [&] { return smallOne.Times(factor); }, 1), Unit::Milliseconds,
         1.0);
}

} // namespace

} // namespace turfdesk::bench

int main(int argc, char **argv) { return turfdesk::bench::RunBenchmark(argc, argv, turfdesk::bench::Run); }
