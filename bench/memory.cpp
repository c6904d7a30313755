// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// How much memory each operation takes at its peak with a course of 2 GB, against one of 2 MB.

#include "Child.h"
#include "HeavyCourse.h"
#include "Measure.h"

#include <array>

namespace turfdesk::bench {

namespace {

constexpr std::array<const char *, 4> Operations = {"list what is installed", "install a course (copy)",
                                                    "write a package", "install a package"};

/// Peaks in bytes, one for each of the operations.
using Peaks = std::array<double, Operations.size()>;

Peaks MeasurePeaks(const Options &options, std::uint64_t courseSize) {
  WorkFolder folder(options.folder);
  const HeavyCourse course = MakeHeavyCourse(folder.NewFolder(), {courseSize, 1'000'000, 1'000'000});
  const std::string package = (folder.Path() / "heavy.hlz").string();
  const auto peak = [&folder](const std::filesystem::path &home, std::vector<std::string> words) {
    words.insert(words.begin(), {SiblingProgram("turfctl"), "--home", home.string(), "--json", "--yes"});
    return PeakBytesOfChild(words, folder.Path() / "peak");
  };
  Peaks peaks{};
  peaks[0] = peak(course.home, {"list"});
  {
    const WorkFolder destination(folder.Path());
    peaks[1] = peak(destination.Path(), {"install", course.files[0], "--to", destination.Path().string()});
  }
  peaks[2] = peak(course.home, {"compress", course.key, "--output", package});
  const WorkFolder destination(folder.Path());
  peaks[3] = peak(destination.Path(), {"install", package, "--to", destination.Path().string()});
  return peaks;
}

void Run(const Options &options) {
  const Peaks small = MeasurePeaks(options, 2'000'000);
  const Peaks large = MeasurePeaks(options, options.quick ? 50'000'000 : 2'000'000'000);
  for (std::size_t i = 0; i < Operations.size(); ++i)
    Report(std::string("peak memory, 2 GB: ") + Operations[i], "the same with 2 MB",
           {large[i], small[i], large[i] / small[i]}, Unit::Mebibytes, 1.25);
}

} // namespace

} // namespace turfdesk::bench

int main(int argc, char **argv) { return turfdesk::bench::RunBenchmark(argc, argv, turfdesk::bench::Run); }
