// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/OldCourses.h"

#include <sstream>

namespace turfdesk::samples {

namespace {

constexpr std::string_view NameLine = "Name: ";
constexpr std::string_view DurationLine = "Milliseconds: ";
constexpr const char *MainFile = "course.qar";

} // namespace

void WriteOldCourse(const std::filesystem::path &folder, const OldCourse &course) {
  std::ostringstream text;
  text << "A sample of an old course\n" << NameLine << course.name << '\n';
  text << DurationLine << course.duration.count() << '\n';
  WriteFile(folder / MainFile, ToBytes(text.str()));
  WriteFile(folder / "terrain.qtn", Bytes(2048));
  WriteFile(folder / "TREES.QTB", Bytes(1024));
}

OldCourse ReadOldCourse(const std::filesystem::path &folder) {
  const Bytes content = ReadFile(folder / MainFile);
  std::istringstream text(std::string(content.begin(), content.end()));
  OldCourse course;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with(NameLine))
      course.name = line.substr(NameLine.size());
    if (line.starts_with(DurationLine))
      course.duration = std::chrono::milliseconds(std::stol(line.substr(DurationLine.size())));
  }
  return course;
}

void WriteOldCourses(const std::filesystem::path &folder) {
  using namespace std::chrono_literals;
  WriteOldCourse(folder / "Windmill Hill", {"Windmill Hill", 3s});
  WriteOldCourse(folder / HostPath("Fågelsjö Äng 2001"), {"Fågelsjö Äng", 6s});
  WriteOldCourse(folder / "Bellwether Downs again", {"Bellwether Downs", 2s});
  WriteOldCourse(folder / "Spoilt", {"", 1s});
  WriteFile(folder / "Score cards" / "2001.txt", ToBytes("72\r\n75\r\n71\r\n"));
}

} // namespace turfdesk::samples
