// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "content/CourseFile.h"
#include "content/LibraryFile.h"

#include "common/TestWorld.h"
#include "samples/GameFiles.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

constexpr const char *Path = R"(C:\Games\x.hlc)";

class HeaderTest : public testing::Test {
protected:
  /// Writes a course and reads it; result and LastError tell how that went.
  CourseFile ReadCourse(const samples::CourseSpec &spec) {
    samples::WriteCourse(world.Host(Path), spec);
    CourseFile course(world.state);
    course.FileName = Path;
    result = course.ReadFile();
    return course;
  }

  static samples::CourseSpec WithLibraries(int count) {
    samples::CourseSpec spec{.name = "Old Elm"};
    for (int i = 0; i < count; ++i)
      spec.libraries.push_back({.name = "Library " + std::to_string(i)});
    return spec;
  }

  test::TestWorld world;
  bool result = false;
};

} // namespace

TEST_F(HeaderTest, ReadsAnHonestCourse) {
  samples::CourseSpec spec = WithLibraries(3);
  spec.name = "Château d'Été à la Forêt à côté du lac X"; // 40 bytes leave no room for a NUL
  spec.version = -7;
  const CourseFile course = ReadCourse(spec);
  EXPECT_TRUE(result);
  EXPECT_EQ(course.Name(), spec.name);
  EXPECT_EQ(course.GUID(), samples::KeyOf(spec));
  EXPECT_EQ(course.Version(), -7);
  EXPECT_EQ(course.NumOfLibraries(), 3);
  EXPECT_EQ(course.LibraryNames(), (std::vector<std::string>{"Library 0", "Library 1", "Library 2"}));
  EXPECT_EQ(course.LibraryGUIDS()[2], samples::KeyOf(spec.libraries[2]));
}

TEST_F(HeaderTest, CountsThatNeedNoNames) {
  struct Case {
    samples::CourseLies lies;
    std::size_t guids;
    std::size_t names;
  };
  const Case cases[] = {
      {{.libraryCount = 0, .namesOffset = 65535, .cutAt = 268}, 0, 0},
      {{.libraryCount = -3, .cutAt = 268}, 0, 0},
      {{.namesOffset = 299}, 2, 0},
      {{.namesOffset = 0x8001}, 2, 0},
      {{.names = std::vector<std::string>{"only one"}}, 2, 1},
      {{.names = std::vector<std::string>{"a", "b", "c"}}, 2, 3},
  };
  for (const Case &c : cases) {
    samples::CourseSpec spec = WithLibraries(2);
    spec.lies = c.lies;
    const CourseFile course = ReadCourse(spec);
    EXPECT_TRUE(result) << course.LastError();
    EXPECT_EQ(course.LibraryGUIDS().size(), c.guids);
    EXPECT_EQ(course.LibraryNames().size(), c.names);
  }
}

TEST_F(HeaderTest, NamesMayFollowTheGuidsAtOnceAndLieFarBehind) {
  for (const std::uint32_t gap : {0U, 100U, 20000U}) {
    samples::CourseSpec spec = WithLibraries(2);
    spec.gap = gap;
    spec.size = 40000;
    EXPECT_EQ(ReadCourse(spec).LibraryNames().size(), 2U) << gap;
  }
}

TEST_F(HeaderTest, BrokenCoursesFailWithWords) {
  const std::pair<samples::CourseLies, const char *> cases[] = {
      {{.cutAt = 0}, "Input past end of file"},
      {{.cutAt = 61}, "Input past end of file"},
      {{.cutAt = 267}, "Input past end of file"},
      {{.cutAt = 268 + 16 + 15}, "Input past end of file"},
      {{.endlessNames = true}, "Input past end of file"},
      {{.namesOffset = 30000}, "Input past end of file"},
      {{.namesOffset = 0x10000}, "Overflow"},
  };
  for (const auto &[lies, words] : cases) {
    samples::CourseSpec spec = WithLibraries(2);
    spec.lies = lies;
    EXPECT_EQ(ReadCourse(spec).LastError(), words);
    EXPECT_FALSE(result);
  }
}

TEST_F(HeaderTest, TheLargestListHas2047Libraries) {
  samples::CourseSpec spec = WithLibraries(2047);
  spec.gap = 0;
  spec.lies.namesOffset = 0; // the honest place does not fit the field
  EXPECT_EQ(ReadCourse(spec).LibraryGUIDS().size(), 2047U);
  EXPECT_TRUE(result);
  spec = WithLibraries(2048);
  spec.gap = 0;
  spec.lies.namesOffset = 0;
  EXPECT_EQ(ReadCourse(spec).LastError(), "Overflow");
}

TEST_F(HeaderTest, AMissingCourseLeavesLastErrorAsItWas) {
  for (const char *path : {R"(C:\Games\none.hlc)", R"(C:\none\x.hlc)", R"(Q:\x.hlc)", ""}) {
    CourseFile course(world.state);
    course.FileName = path;
    EXPECT_FALSE(course.ReadFile()) << path;
    EXPECT_EQ(course.LastError(), "") << path;
  }
}

TEST_F(HeaderTest, LibrariesNeed62BytesAndKeepWhatWasReadBefore) {
  const samples::LibrarySpec spec{.name = "Meadow Grass", .version = 3, .size = 62};
  samples::Bytes bytes = samples::LibraryBytes(spec);
  bytes.resize(62);
  samples::WriteFile(world.Host(Path), bytes);
  LibraryFile whole(world.state);
  whole.FileName = Path;
  EXPECT_TRUE(whole.ReadFile());
  EXPECT_EQ(whole.Name(), "Meadow Grass");
  EXPECT_EQ(whole.GUID(), samples::KeyOf(spec));

  bytes.pop_back();
  samples::WriteFile(world.Host(Path), bytes);
  LibraryFile cut(world.state);
  cut.FileName = Path;
  EXPECT_FALSE(cut.ReadFile());
  EXPECT_EQ(cut.LastError(), "Input past end of file");
  EXPECT_EQ(cut.Version(), 3);
  EXPECT_EQ(cut.GUID(), samples::KeyOf(spec));
  EXPECT_EQ(cut.Name(), "");
}

} // namespace turfdesk
