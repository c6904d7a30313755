// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "converters/SampleConverter.h"

#include "samples/WorldBuilder.h"

#include <stdexcept>

namespace turfdesk::samples {

namespace {

std::filesystem::path HomeAbove(const std::filesystem::path &program) {
  if constexpr (std::filesystem::path::preferred_separator == '\\')
    return {};
  for (std::filesystem::path folder = program.parent_path(); folder != folder.parent_path();
       folder = folder.parent_path())
    if (std::filesystem::exists(folder / "settings.db"))
      return folder;
  throw std::runtime_error("no settings tree above " + Utf8(program));
}

} // namespace

SampleConverter::SampleConverter(const char *program, const std::vector<std::string> &arguments)
    : mProgram(std::filesystem::absolute(HostPath(program))) {
  std::string lines;
  for (const std::string &argument : arguments)
    lines.append(argument).append("\n");
  WriteFile(std::filesystem::path(mProgram).concat(".arguments"), ToBytes(lines));
}

void SampleConverter::EnterCourse(const std::string &name) const {
  WorldBuilder world(HomeAbove(mProgram));
  world.AddCourse({.name = name}, name, {});
  world.WriteCatalogue();
}

} // namespace turfdesk::samples
