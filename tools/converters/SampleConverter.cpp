// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "converters/SampleConverter.h"

#include "samples/WorldBuilder.h"

#include <stdexcept>

namespace turfdesk::samples {

namespace {

std::filesystem::path HomeAbove(const std::filesystem::path &program) {
  for (std::filesystem::path folder = program.parent_path(); folder != folder.parent_path();
       folder = folder.parent_path())
    if (std::filesystem::exists(folder / "settings.db"))
      return folder;
  throw std::runtime_error("no settings tree above " + program.string());
}

} // namespace

SampleConverter::SampleConverter(std::span<char *const> arguments)
    : mProgram(std::filesystem::absolute(arguments.front())) {
  std::string lines;
  for (const char *argument : arguments.subspan(1))
    lines.append(argument).append("\n");
  WriteFile(std::filesystem::path(mProgram).concat(".arguments"), ToBytes(lines));
}

void SampleConverter::EnterCourse(const std::string &name) const {
  WorldBuilder world(HomeAbove(mProgram));
  world.AddCourse({.name = name}, name, {});
  world.WriteCatalogue();
}

} // namespace turfdesk::samples
