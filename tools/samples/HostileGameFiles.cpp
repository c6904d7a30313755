// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/GameFiles.h"
#include "samples/HostileFiles.h"

namespace turfdesk::samples {

namespace {

CourseSpec Course(std::string name, std::size_t libraries) {
  CourseSpec course;
  course.name = std::move(name);
  for (std::size_t i = 1; i <= libraries; ++i) {
    LibrarySpec library;
    library.name = "Hedge " + std::to_string(i);
    course.libraries.push_back(library);
  }
  return course;
}

CourseSpec With(CourseSpec course, const CourseLies &lies) {
  course.lies = lies;
  return course;
}

/// A place to cut a file, named after the field that is cut.
struct Cut {
  const char *field;
  std::uint64_t size;
};

// Of a file that holds two libraries with no gap: the GUIDs end at 300, the list of names at 317.
constexpr Cut CourseCuts[] = {
    {"empty", 0},       {"in-version", 1},           {"in-guid", 17},       {"in-reserved", 20},
    {"in-name", 61},    {"before-count", 94},        {"in-count", 95},      {"in-names-offset", 259},
    {"at-header", 267}, {"before-guids", 268},       {"in-guid-list", 299}, {"before-names", 300},
    {"in-names", 312},  {"before-end-of-names", 316}};

constexpr Cut LibraryCuts[] = {{"empty", 0}, {"in-version", 1}, {"in-guid", 17}, {"in-reserved", 20}, {"in-name", 61}};

void AddCutCourses(std::vector<HostileFile> &files) {
  for (const Cut &cut : CourseCuts) {
    CourseSpec course = Course("Cut Short", 2);
    course.gap = 0;
    course.lies.cutAt = cut.size;
    files.push_back({std::string("cut-") + cut.field + ".hlc", CourseBytes(course)});
  }
}

// With 2,047 libraries the names cannot lie within the reach of their offset, so none are read.
void AddCounts(std::vector<HostileFile> &files) {
  files.push_back({"count-negative.hlc", CourseBytes(With(Course("Fewer Than None", 2), {.libraryCount = -1})), true});
  files.push_back({"count-2047.hlc", CourseBytes(Course("As Many As Fit", 2047)), true});
  files.push_back({"count-2048.hlc", CourseBytes(Course("One Too Many", 2048))});
  files.push_back({"count-beyond-file.hlc", CourseBytes(With(Course("Boastful", 2), {.libraryCount = 2000}))});
}

void AddNames(std::vector<HostileFile> &files) {
  files.push_back({"names-fewer-than-guids.hlc",
                   CourseBytes(With(Course("Shy Hedges", 3), {.names = std::vector<std::string>{"Hedge 1"}})), true});
  files.push_back({"names-more-than-guids.hlc",
                   CourseBytes(With(Course("Proud Hedges", 1),
                                    {.names = std::vector<std::string>{"Hedge 1", "Hedge 2", "Hedge 3"}})),
                   true});
  files.push_back(
      {"names-none.hlc", CourseBytes(With(Course("Nameless", 2), {.names = std::vector<std::string>{}})), true});
  files.push_back({"names-without-end.hlc", CourseBytes(With(Course("No End", 2), {.endlessNames = true}))});
  files.push_back({"offset-before-guids.hlc", CourseBytes(With(Course("Backwards", 2), {.namesOffset = 299})), true});
  files.push_back({"offset-beyond-16-bits.hlc", CourseBytes(With(Course("Far Off", 2), {.namesOffset = 0x10000}))});
  files.push_back({"offset-largest.hlc", CourseBytes(With(Course("Farthest Off", 2), {.namesOffset = 0xFFFFFFFF}))});
  files.push_back({"offset-negative.hlc", CourseBytes(With(Course("Below Zero", 2), {.namesOffset = 0x8000})), true});
  files.push_back({"offset-beyond-file.hlc", CourseBytes(With(Course("Over The Fence", 2), {.namesOffset = 30000}))});
}

// Nothing is wrong with these headers; what they hold is what trips.
void AddOddities(std::vector<HostileFile> &files) {
  CourseSpec twice = Course("Twice The Hedge", 1);
  twice.libraries.push_back(twice.libraries[0]);
  files.push_back({"library-twice.hlc", CourseBytes(twice), true});
  files.push_back({"name-40-bytes.hlc", CourseBytes(Course("The Long Walk Home Beside The Quiet Mere", 1)), true});
  files.push_back({"name-empty.hlc", CourseBytes(Course("", 1)), true});
  files.push_back({"name-controls.hlc", CourseBytes(Course("Tab\tLine\r\nBell\aEscape\x1B[31m", 1)), true});
  files.push_back({"name-nul-inside.hlc", CourseBytes(Course(std::string("Split\0 In Two", 13), 1)), true});
  files.push_back({"name-accents.hlc", CourseBytes(Course("Åsgård Über Façade œ€", 1)), true});
  CourseSpec nothing = Course("All Zero", 0);
  nothing.guid = Guid{};
  files.push_back({"guid-zero.hlc", CourseBytes(nothing), true});
}

} // namespace

std::vector<HostileFile> HostileCourses() {
  std::vector<HostileFile> files;
  AddCutCourses(files);
  AddCounts(files);
  AddNames(files);
  AddOddities(files);
  return files;
}

std::vector<HostileFile> HostileLibraries() {
  std::vector<HostileFile> files;
  LibrarySpec library;
  library.name = "Cut Short Stones";
  for (const Cut &cut : LibraryCuts) {
    Bytes content = LibraryBytes(library);
    content.resize(cut.size);
    files.push_back({std::string("cut-") + cut.field + ".hlb", content});
  }
  library.size = 0;
  files.push_back({"header-alone.hlb", LibraryBytes(library), true});
  library.name = "Forty Bytes Of Carefully Stacked Grey Stones";
  files.push_back({"name-40-bytes.hlb", LibraryBytes(library), true});
  library.name = "Line\r\nBreak Stones";
  files.push_back({"name-controls.hlb", LibraryBytes(library), true});
  return files;
}

} // namespace turfdesk::samples
