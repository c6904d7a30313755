// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Target.h"

#include <exception>
#include <iostream>
#include <string_view>

namespace turfdesk::fuzz {

namespace {

/// The name goes first: it is the last that is read of a seed that ends the process.
void Run(const std::string &name, std::span<const std::uint8_t> bytes) {
  std::cout << name << std::endl;
  Examine(bytes);
}

void RunSeeds() {
  for (const samples::HostileFile &seed : Seeds())
    Run(seed.filename, seed.content);
}

void WriteSeeds(const std::filesystem::path &folder) {
  for (const samples::HostileFile &seed : Seeds())
    samples::WriteFile(folder / samples::HostPath(seed.filename), seed.content);
}

} // namespace

} // namespace turfdesk::fuzz

/// Without arguments runs all seeds; with "--write FOLDER" puts them there as files; else runs the files named, such as
/// those that libFuzzer leaves.
int main(int argc, char **argv) {
  try {
    const std::span arguments(argv + 1, static_cast<std::size_t>(argc - 1));
    if (arguments.empty()) {
      turfdesk::fuzz::RunSeeds();
    } else if (arguments.size() == 2 && arguments[0] == std::string_view("--write")) {
      turfdesk::fuzz::WriteSeeds(arguments[1]);
    } else {
      for (const char *path : arguments)
        turfdesk::fuzz::Run(path, turfdesk::samples::ReadFile(path));
    }
    return 0;
  } catch (const std::exception &error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
