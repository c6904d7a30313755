// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// How long turfdesk takes from its start to its first painted window.

#include "Child.h"
#include "FirstPaint.h"
#include "Measure.h"
#include "samples/World.h"

#include <cstdlib>

namespace turfdesk::bench {

namespace {

void Run(const Options &options) {
  WorkFolder folder(options.folder);
  samples::WorldSpec spec{.home = folder.NewFolder(), .courses = options.quick ? 100 : 1000};
  spec.fileSize = 8192;
  spec.downloads = false;
  samples::MakeWorld(spec);
  setenv("TURFDESK_HOME", spec.home.c_str(), 1);
  // Qt complains where there is no session that has set it.
  setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);

  // Starts are short and vary more than other things do.
  const int rounds = 4 * options.rounds;
  const TestDisplay display;
  Report("start to painted window, 1000 courses", "Qt program, empty window",
         Compare([] { return SecondsToFirstPaint({SiblingProgram("turfdesk")}); },
                 [] { return SecondsToFirstPaint({SiblingProgram("bench-empty-window")}); }, rounds),
         Unit::Milliseconds, 1.3);
}

} // namespace

} // namespace turfdesk::bench

int main(int argc, char **argv) { return turfdesk::bench::RunBenchmark(argc, argv, turfdesk::bench::Run); }
