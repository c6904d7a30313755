// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace turfdesk::bench {

/// What the command line of every benchmark can say: [--folder DIR] [--quick] [--rounds N].
struct Options {
  /// Where the benchmark and the programs that it runs put their files, in folders that are gone afterwards.
  std::filesystem::path folder;
  /// Small sizes: to see that everything works, not to judge the numbers.
  bool quick = false;
  int rounds = 5;
};

/// The whole of a benchmark's main: reads the options, runs the benchmark and gives the exit status. That is 1 when it
/// could not be carried out, and 2 for a command line that cannot be read; how the numbers come out does not matter.
int RunBenchmark(int argc, char **argv, void (*run)(const Options &options));

/// Does the work once and gives its cost: seconds, or bytes.
using Work = std::function<double()>;

/// Subject and baseline, measured in turn so that whatever else the machine does meets both. All medians.
struct Comparison {
  double subject = 0;
  double baseline = 0;
  /// The median of the rounds' own ratios.
  double ratio = 0;
};
/// A first round does not count: it fills the caches.
Comparison Compare(const Work &subject, const Work &baseline, int rounds);

/// Seconds that the work takes.
double Seconds(const std::function<void()> &work);

enum class Unit { Milliseconds, Mebibytes };
/// Prints one line of the table. A limit of 0 is none.
void Report(const std::string &subject, const std::string &baseline, const Comparison &comparison, Unit unit,
            double limit);

/// A new folder below another; everything in it is gone with the object.
class WorkFolder {
public:
  explicit WorkFolder(const std::filesystem::path &parent);
  WorkFolder(const WorkFolder &) = delete;
  WorkFolder &operator=(const WorkFolder &) = delete;
  ~WorkFolder();

  /// A new empty folder in it.
  std::filesystem::path NewFolder();
  const std::filesystem::path &Path() const { return mPath; }

private:
  std::filesystem::path mPath;
  int mFolders = 0;
};

} // namespace turfdesk::bench
