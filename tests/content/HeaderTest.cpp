// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "content/CourseFile.h"

#include "common/TestWorld.h"
#include "samples/GameFiles.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

class HeaderTest : public testing::Test {
protected:
  /// Writes a course and reads it; LastError tells how that went.
  CourseFile ReadCourse(const samples::CourseSpec &spec) {
    samples::WriteCourse(world.Host(R"(C:\x.hlc)"), spec);
    CourseFile course(world.state);
    course.FileName = R"(C:\x.hlc)";
    const bool isRead = course.ReadFile();
    EXPECT_EQ(isRead, course.LastError().empty());
    return course;
  }

  static samples::CourseSpec WithLibraries(int count) {
    samples::CourseSpec spec;
    for (int i = 0; i < count; ++i)
      spec.libraries.push_back({.name = "Œuvre €" + std::to_string(i)});
    return spec;
  }

  test::TestWorld world;
};

} // namespace

TEST_F(HeaderTest, ReadsAnHonestCourse) {
  // Just behind the GUIDs, and beyond what is read at a time.
  for (const std::uint32_t gap : {0U, 100U, 20000U}) {
    samples::CourseSpec spec = WithLibraries(3);
    spec.name = "Château d'Été à la Forêt à côté du lac X"; // 40 bytes leave no room for a NUL
    spec.guid = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x06, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF};
    spec.version = -7;
    spec.gap = gap;
    const CourseFile course = ReadCourse(spec);
    EXPECT_EQ(course.Name(), spec.name);
    EXPECT_EQ(course.GUID(), "{00112233-4455-0677-8899-AABBCCDDEEFF}");
    EXPECT_EQ(course.Version(), -7);
    EXPECT_EQ(course.LibraryNames(), (std::vector<std::string>{"Œuvre €0", "Œuvre €1", "Œuvre €2"})) << gap;
    EXPECT_EQ(course.LibraryGUIDS().at(2), samples::KeyOf(spec.libraries[2]));
  }
}

TEST_F(HeaderTest, GoesAsFarAsALyingCourseLets) {
  constexpr const char *cut = "Input past end of file";
  struct Case {
    samples::CourseLies lies;
    const char *error;
    std::size_t guids = 0;
    std::size_t names = 0;
  };
  const Case cases[] = {
      {{.libraryCount = 0, .namesOffset = 65535, .cutAt = 268}, ""},
      {{.libraryCount = -3, .cutAt = 268}, ""},
      {{.namesOffset = 299}, "", 2},
      {{.namesOffset = 0x8001}, "", 2},
      {{.names = std::vector<std::string>{}}, "", 2},
      {{.names = std::vector<std::string>{"only one"}}, "", 2, 1},
      {{.names = std::vector<std::string>{"", "a", "b", "c"}}, "", 2, 3},
      {{.cutAt = 0}, cut},
      {{.cutAt = 61}, cut},
      {{.cutAt = 267}, cut},
      {{.cutAt = 268 + 16 + 15}, cut},
      {{.endlessNames = true}, cut, 2},
      {{.namesOffset = 30000}, cut, 2},
      {{.namesOffset = 0x10000}, "Overflow"},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(&c - cases);
    samples::CourseSpec spec = WithLibraries(2);
    spec.lies = c.lies;
    const CourseFile course = ReadCourse(spec);
    EXPECT_EQ(course.LastError(), c.error);
    EXPECT_EQ(course.LibraryGUIDS().size(), c.guids);
    EXPECT_EQ(course.LibraryNames().size(), c.names);
  }
}

TEST_F(HeaderTest, NothingButTheFilesEndBoundsTheNames) {
  samples::CourseSpec spec = WithLibraries(2);
  const std::vector<std::string> many(600'000, "x");
  constexpr std::size_t twentyMillion = 20'000'000;
  std::string longName;
  longName.resize(twentyMillion, 'x');
  for (const auto &names : {many, {longName}}) {
    spec.lies.names = names;
    const CourseFile course = ReadCourse(spec);
    EXPECT_EQ(course.LibraryGUIDS().size(), 2U);
    EXPECT_EQ(course.LibraryNames().size(), names.size());
  }
}

TEST_F(HeaderTest, TheLargestListHas2047Libraries) {
  samples::CourseSpec spec = WithLibraries(2047);
  spec.lies.namesOffset = 0; // the honest place does not fit the field
  EXPECT_EQ(ReadCourse(spec).LibraryGUIDS().size(), 2047U);
  spec.libraries.emplace_back();
  EXPECT_EQ(ReadCourse(spec).LastError(), "Overflow");
}

} // namespace turfdesk
