// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/World.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

int main(int argc, char **argv) {
  CLI::App app("Makes a home folder for Turf Desk with sample courses, libraries and packages.", "turfdesk-samples");
  turfdesk::samples::WorldSpec spec;
  std::string home;
  std::string filesFolder;
  bool bare = false;
  auto *where = app.add_option_group("place");
  where->add_option("--home", home, "Make a whole world in this home folder");
  where->add_option("--only-files", filesFolder, "Write only the files to install into this folder");
  where->require_option(1);
  app.add_option("--courses", spec.courses, "So many generated courses instead of the hand-picked dozen");
  app.add_option("--libraries-per-course", spec.librariesPerCourse, "Libraries of each generated course")
      ->check(CLI::Range(0, 2047))
      ->capture_default_str();
  app.add_option("--size", spec.fileSize, "Bytes of each course and library file")->capture_default_str();
  app.add_option("--seed", spec.seed, "Chooses the game data")->capture_default_str();
  app.add_flag("--bare", bare, "No packages, files to install and courses to convert");
  CLI11_PARSE(app, argc, argv);

  try {
    if (!filesFolder.empty()) {
      turfdesk::samples::WriteDownloads(turfdesk::samples::HostPath(filesFolder), spec.fileSize, spec.seed);
      return 0;
    }
    spec.home = turfdesk::samples::HostPath(home);
    spec.downloads = !bare;
    if (!bare)
      spec.converters = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    turfdesk::samples::MakeWorld(spec);
    return 0;
  } catch (const std::exception &error) {
    std::cerr << "turfdesk-samples: " << error.what() << '\n';
    return 1;
  }
}
