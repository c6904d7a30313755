// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "HeavyCourse.h"

#include "samples/Media.h"
#include "samples/WorldBuilder.h"

namespace turfdesk::bench {

namespace {

std::string LongNotes() {
  std::string notes;
  for (std::uint64_t i = 0; i < 100; ++i)
    notes += samples::CourseNotes("Heavy Going, hole " + std::to_string(i % 18 + 1), i);
  return notes;
}

} // namespace

HeavyCourse MakeHeavyCourse(const std::filesystem::path &home, const HeavySizes &sizes) {
  const std::string folder = "C:\\Heavy\\";
  samples::WorldBuilder builder(home);
  samples::CourseSpec course;
  course.name = "Heavy Going";
  course.size = sizes.course;
  HeavyCourse heavy{home, samples::KeyOf(course), {}};
  for (const char *name : {"Heavy Clay", "Heavy Oaks", "Heavy Weather"}) {
    samples::LibrarySpec library;
    library.name = name;
    library.size = sizes.library;
    library.seed = 2 + course.libraries.size();
    course.libraries.push_back(library);
  }

  const auto enter = [&](std::string_view valueName, const std::string &filename) {
    builder.SetCourseFile(course, valueName, folder + filename);
    heavy.files.push_back(builder.OnDrive(folder + filename).string());
    return builder.OnDrive(folder + filename);
  };
  builder.SetName(course);
  samples::WriteCourse(enter("Filename", "Heavy Going.hlc"), course);
  samples::WriteFile(enter("Picture", "Heavy Going.bmp"), samples::PictureBytes(800, 600, 1));
  samples::WriteFile(enter("Music", "Heavy Going.mp3"), samples::Mp3Bytes(sizes.music, 1));
  samples::WriteFile(enter("Text", "Heavy Going.txt"), samples::ToBytes(LongNotes()));
  for (const samples::LibrarySpec &library : course.libraries)
    heavy.files.push_back(builder.AddLibrary(library).string());
  builder.WriteCatalogue();
  return heavy;
}

} // namespace turfdesk::bench
