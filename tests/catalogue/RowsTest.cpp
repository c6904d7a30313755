// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "platform/RuntimeError.h"

#include "common/TestWorld.h"
#include "samples/GameFiles.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

class RowsTest : public testing::Test {
protected:
  /// Catalogues a course that lies on disk, and gives its row.
  Row &AddCourse(const samples::CourseSpec &spec) {
    const std::string path = R"(C:\Games\)" + spec.name + ".hlc";
    samples::WriteCourse(world.Host(path), spec);
    RegisterCourse(state, samples::KeyOf(spec), spec.name, path);
    Row *row = FindListRow(samples::KeyOf(spec), spec.name, state.lstCourses, true);
    FillCourseRow(state, samples::KeyOf(spec), *row);
    return *row;
  }

  test::TestWorld world;
  SharedState &state = world.state;
  samples::LibrarySpec grass{.name = "Grass"};
  samples::LibrarySpec trees{.name = "Trees"};
};

} // namespace

TEST_F(RowsTest, ACourseRowIsACopyOfItsEntryWithTheLibraryListOfTheFile) {
  const samples::CourseSpec spec{.name = "Old Elm", .libraries = {trees, grass}, .size = 5000};
  const Row &row = AddCourse(spec);
  EXPECT_EQ(row.Tag(), samples::KeyOf(spec));
  EXPECT_EQ(row.SubItems(column::Filename), R"(C:\Games\Old Elm.hlc)");
  EXPECT_EQ(row.SubItems(column::Size), "5000");
  EXPECT_EQ(row.SubItems(column::Libraries), samples::KeyOf(trees) + "," + samples::KeyOf(grass));
  EXPECT_EQ(row.SubItems(column::Picture) + row.SubItems(column::Text), "");
}

TEST_F(RowsTest, AnEntryWithoutFileOrValuesStillFillsItsRow) {
  samples::CourseSpec broken{.name = "Broken", .libraries = {grass}};
  broken.lies.cutAt = 100;
  EXPECT_EQ(AddCourse(broken).SubItems(column::Libraries), "");
  Row &empty = state.lstCourses.Add("{X}", "");
  FillCourseRow(state, "{X}", empty);
  EXPECT_EQ(empty.SubItems(column::Size), "0");
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(RowsTest, WhichCourseUsesWhichLibrary) {
  const Row &elm = AddCourse({.name = "Old Elm", .libraries = {grass, trees}});
  const Row &oak = AddCourse({.name = "Oak", .libraries = {grass}});
  RegisterLibrary(state, samples::KeyOf(grass), "Grass", R"(C:\g.hlb)");
  const std::string grassKey = samples::KeyOf(grass);
  const std::string treesKey = samples::KeyOf(trees);

  EXPECT_TRUE(LibraryUsedByOtherCourse(state, grassKey, elm.Tag()));
  EXPECT_FALSE(LibraryUsedByOtherCourse(state, treesKey, elm.Tag()));
  EXPECT_TRUE(LibraryUsedByOtherCourse(state, treesKey, oak.Tag()));
  EXPECT_FALSE(IsOrphanOfCourse(state, treesKey, elm.Tag())) << "it is not catalogued";
  RegisterLibrary(state, treesKey, "Trees", R"(C:\t.hlb)");
  EXPECT_TRUE(IsOrphanOfCourse(state, treesKey, elm.Tag()));
  EXPECT_FALSE(IsOrphanOfCourse(state, grassKey, elm.Tag()));

  std::vector<std::string> names = {"stale"};
  EXPECT_EQ(ListCoursesUsingLibrary(state.lstCourses, names, grassKey), 2);
  EXPECT_EQ(names, (std::vector<std::string>{"Old Elm", "Oak"}));
  EXPECT_EQ(ListCoursesUsingLibrary(state.lstCourses, names, "{none}"), 0);
}

TEST_F(RowsTest, LibrariesOfACourseAreListedInItsOrderAlsoUncatalogued) {
  RegisterLibrary(state, samples::KeyOf(grass), "Grass", R"(C:\g.hlb)");
  ListView libraries;
  EXPECT_EQ(ListLibrariesInCourse(state, AddCourse({.name = "Elm", .libraries = {trees, grass}}), libraries), 2);
  EXPECT_EQ(libraries.At(0).Tag(), samples::KeyOf(trees));
  EXPECT_EQ(libraries.At(0).Text() + libraries.At(0).SubItems(1), "");
  EXPECT_EQ(libraries.At(1).Text() + libraries.At(1).SubItems(1), R"(GrassC:\g.hlb)");
  EXPECT_EQ(ListLibrariesInCourse(state, AddCourse({.name = "Bare"}), libraries), 0);
  EXPECT_EQ(libraries.Count(), 0U);
  EXPECT_THROW(ListLibrariesInCourse(state, AddCourse({.name = "Twice", .libraries = {grass, grass}}), libraries),
               RuntimeError);
}

TEST_F(RowsTest, RowsAreFoundAndCopiedByTheirTag) {
  const Row &elm = AddCourse({.name = "Old Elm", .libraries = {grass}});
  ListView list;
  EXPECT_EQ(FindListRow(elm.Tag(), "x", list, false), nullptr);
  CopyRowToList(elm, list, false);
  EXPECT_EQ(list.Count(), 0U);
  EXPECT_EQ(FindListRow(elm.Tag(), "x", list, true)->Tag(), "");
  list.Clear();
  CopyRowToList(elm, list, true);
  const Row &copy = list.At(0);
  EXPECT_EQ(copy.Text() + copy.Key(), elm.Text() + elm.Tag());
  for (int index = column::Filename; index <= column::Text; ++index)
    EXPECT_EQ(copy.SubItems(index), elm.SubItems(index));
  world.boxes.answers = {true};
  EXPECT_TRUE(AskAboutOrphan(state, samples::KeyOf(grass), "Do you wish to delete it?"));
  EXPECT_EQ(world.boxes.shown.back().text,
            "This course uses the following library which is not being used by any other course.\r\n\r\n\r\n\r\n"
            "Do you wish to delete it?");
}

} // namespace turfdesk
