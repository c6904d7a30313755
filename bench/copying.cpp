// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// How long it takes to copy a course of 512 MB to the folder that it is installed to.

#include "Child.h"
#include "Measure.h"
#include "samples/GameFiles.h"

namespace turfdesk::bench {

namespace {

void Run(const Options &options) {
  WorkFolder folder(options.folder);
  samples::CourseSpec course;
  course.name = "Long Haul";
  course.size = options.quick ? 4'000'000 : 512'000'000;
  const std::string source = (folder.NewFolder() / "Long Haul.hlc").string();
  const std::string home = folder.NewFolder().string();
  samples::WriteCourse(source, course);

  // Runs a command whose last word is left to be the folder to copy to, which is new each time.
  const auto timed = [&](std::vector<std::string> command) {
    const std::filesystem::path destination = folder.NewFolder();
    command.push_back(destination.string());
    SettleDisk();
    const double seconds = RunChild(command);
    std::filesystem::remove_all(destination);
    return seconds;
  };
  const auto ours = [&] {
    return timed({SiblingProgram("turfctl"), "--home", home, "--json", "--yes", "install", source, "--to"});
  };
  const auto theirs = [&] { return timed({"sh", "-c", "cp \"$1\" \"$2\" && sync \"$2\"/*", "sh", source}); };
  Report("copy a course of 512 MB (install)", "cp, flush", Compare(ours, theirs, options.rounds), Unit::Milliseconds,
         1.1);
}

} // namespace

} // namespace turfdesk::bench

int main(int argc, char **argv) { return turfdesk::bench::RunBenchmark(argc, argv, turfdesk::bench::Run); }
