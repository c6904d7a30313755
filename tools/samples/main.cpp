// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/CommandLine.h"
#include "platform/Platform.h"
#include "samples/World.h"
#include "samples/WorldBuilder.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <stdexcept>

namespace {

using namespace turfdesk::samples;

/// The folder of this program, which the sample converters lie in as well.
std::filesystem::path ProgramFolder(const std::filesystem::path &home) {
  const auto platform = turfdesk::MakePlatform(Utf8(home));
  return HostPath(platform->ToHostPath(platform->ProgramFolder()));
}

void MakeWholeWorld(WorldSpec spec) {
  // Above all on Windows, where the world is not a home folder but the system itself.
  if (WorldBuilder(spec.home).HasAnotherGame())
    throw std::runtime_error("the game is installed here already; the samples would take its place");
  if (spec.downloads)
    spec.converters = ProgramFolder(spec.home);
  MakeWorld(spec);
}

} // namespace

int main(int argc, char **argv) {
  CLI::App app("Makes a home folder for Turf Desk with sample courses, libraries and packages.", "turfdesk-samples");
  WorldSpec spec;
  std::string home;
  std::string filesFolder;
  bool bare = false;
  auto *where = app.add_option_group("place");
  where->add_option("--home", home, "Make a whole world in this home folder; on Windows, in the system itself");
  where->add_option("--only-files", filesFolder, "Write only the files to install into this folder");
  where->require_option(1);
  app.add_option("--courses", spec.courses, "So many generated courses instead of the hand-picked dozen");
  app.add_option("--libraries-per-course", spec.librariesPerCourse, "Libraries of each generated course")
      ->check(CLI::Range(0, 2047))
      ->capture_default_str();
  app.add_option("--size", spec.fileSize, "Bytes of each course and library file")->capture_default_str();
  app.add_option("--seed", spec.seed, "Chooses the game data")->capture_default_str();
  app.add_flag("--bare", bare, "No packages, files to install and courses to convert");
  const std::vector<std::string> arguments = turfdesk::CommandArguments(argc, argv);
  try {
    // The library takes them off the end.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    spec.home = HostPath(home);
    spec.downloads = !bare;
    if (filesFolder.empty())
      MakeWholeWorld(spec);
    else
      WriteDownloads(HostPath(filesFolder), spec.fileSize, spec.seed);
    return 0;
  } catch (const CLI::ParseError &error) {
    return app.exit(error);
  } catch (const std::exception &error) {
    std::cerr << "turfdesk-samples: " << error.what() << '\n';
    return 1;
  }
}
