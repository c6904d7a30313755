// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/World.h"

#include "samples/Names.h"
#include "samples/OldCourses.h"
#include "samples/WorldBuilder.h"

#include <algorithm>

namespace turfdesk::samples {

namespace {

/// One of the hand-picked courses.
struct InstalledCourse {
  const char *name;
  /// The file's name without extension where it is not the course's.
  const char *baseName;
  std::vector<const char *> libraries;
  CourseMedia media;
  bool filesMissing = false;
};

const std::vector<InstalledCourse> &InstalledCourses() {
  static const std::vector<InstalledCourse> courses = {
      {"Öresund Links", nullptr, {"Seaside Grasses", "Dune Fences", "Nordic Pines"}, {true, true, false, true}},
      {"Thistledown Heath",
       nullptr,
       {"Heather & Gorse", "Dry Stone Walls", "Sheep, Grazing"},
       {true, true, true, true}},
      {"Bellwether Downs", nullptr, {"Dry Stone Walls"}, {true, false, false, true}},
      {"Café des Pins", nullptr, {"Terrace Furniture"}, {true, true, false, false}},
      {"Saltmarsh Point", nullptr, {}, {true, false, false, false}},
      {"Larkrise Common", nullptr, {}, {}},
      // The second of its libraries is neither installed nor anywhere on the drive.
      {"Señorío del Río", nullptr, {"Terrace Furniture", "Orange Groves"}, {false, true, false, true}},
      {"Sakuragaoka", "桜ヶ丘", {"Nordic Pines", "Rope Bridges"}, {true, false, false, false}},
      {"Skógur Ridge", nullptr, {"Nordic Pines", "Rope Bridges", "Dry Stone Walls"}, {false, false, true, false}},
      {"The Long Walk Home Beside The Quiet Mere", nullptr, {"Seaside Grasses"}, {}},
      {"Old Quarry Nine", nullptr, {"Dry Stone Walls"}, {true, true, false, true}, true},
      {"Moor & Tarn", nullptr, {"Heather & Gorse", "Lost Lanterns", "Rope Bridges"}, {false, false, false, true}},
  };
  return courses;
}

constexpr const char *InstalledLibraries[] = {"Seaside Grasses",   "Dune Fences",     "Nordic Pines",
                                              "Heather & Gorse",   "Dry Stone Walls", "Sheep, Grazing",
                                              "Terrace Furniture", "Rope Bridges",    "Wildflower Verges"};

// Entered, but its file has gone.
constexpr const char *LibraryWithoutFile = "Lost Lanterns";

LibrarySpec Library(std::string name, const WorldSpec &spec, std::size_t number) {
  LibrarySpec library;
  library.name = std::move(name);
  library.size = spec.fileSize;
  library.seed = spec.seed + 1000003 * (number + 1);
  return library;
}

CourseSpec Course(std::string name, const WorldSpec &spec, std::size_t number) {
  CourseSpec course;
  course.name = std::move(name);
  course.size = spec.fileSize;
  course.seed = spec.seed + number;
  return course;
}

void AddInstalledCourses(WorldBuilder &builder, const WorldSpec &spec) {
  std::size_t number = 0;
  for (const InstalledCourse &installed : InstalledCourses()) {
    CourseSpec course = Course(installed.name, spec, number);
    for (const char *library : installed.libraries)
      course.libraries.push_back(Library(library, spec, 0));
    const std::string baseName = installed.baseName != nullptr ? installed.baseName : installed.name;
    if (installed.filesMissing)
      builder.AddCourseWithoutFiles(course, baseName, installed.media);
    else
      builder.AddCourse(course, baseName, installed.media);
    if (number % 2 == 0)
      builder.AddStatistics(course);
    ++number;
  }
}

void AddInstalledLibraries(WorldBuilder &builder, const WorldSpec &spec) {
  std::size_t number = 0;
  for (const char *name : InstalledLibraries) {
    const LibrarySpec library = Library(name, spec, number++);
    builder.AddLibrary(library);
    if (number % 3 == 0)
      builder.AddSwapFile(library);
  }
  builder.AddLibraryWithoutFile(Library(LibraryWithoutFile, spec, number));
}

// The one course with very many libraries, which no other course uses.
void AddWholeCounty(WorldBuilder &builder, const WorldSpec &spec) {
  constexpr std::size_t libraries = 50;
  CourseSpec course = Course("The Whole County", spec, 77);
  for (std::size_t i = 0; i < libraries; ++i) {
    course.libraries.push_back(Library(LibraryName(i), spec, 100 + i));
    builder.AddLibrary(course.libraries.back());
  }
  builder.AddCourse(course, course.name, {true, false, false, true});
}

void AddGenerated(WorldBuilder &builder, const WorldSpec &spec, std::size_t courses) {
  std::vector<LibrarySpec> libraries;
  if (spec.librariesPerCourse > 0)
    for (std::size_t i = 0; i < std::max(courses, spec.librariesPerCourse); ++i) {
      libraries.push_back(Library(LibraryName(i), spec, i));
      builder.AddLibrary(libraries.back());
    }
  for (std::size_t i = 0; i < courses; ++i) {
    CourseSpec course = Course(CourseName(i), spec, i);
    for (std::size_t k = 0; k < spec.librariesPerCourse; ++k)
      course.libraries.push_back(libraries[(i + k) % libraries.size()]);
    builder.AddCourse(course, course.name, {});
  }
}

} // namespace

void MakeWorld(const WorldSpec &spec) {
  WorldBuilder builder(spec.home);
  builder.AddGame();
  if (spec.courses) {
    AddGenerated(builder, spec, *spec.courses);
  } else {
    AddInstalledLibraries(builder, spec);
    AddInstalledCourses(builder, spec);
    AddWholeCounty(builder, spec);
  }
  if (spec.downloads) {
    WriteDownloads(builder.OnDrive("C:\\Downloads"), spec.fileSize, spec.seed);
    WriteOldCourses(builder.OnDrive(WorldBuilder::OldCourses));
  }
  if (!spec.converters.empty())
    builder.CopyConverters(spec.converters);
  builder.WriteCatalogue();
}

} // namespace turfdesk::samples
