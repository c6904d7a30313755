// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"

#include "catalogue/CatalogueRows.h"
#include "catalogue/LoadLists.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"
#include "samples/GameFiles.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

class CatalogueTest : public testing::Test {
protected:
  static Texts Names(const ListView &list) {
    Texts names;
    for (std::size_t i = 0; i < list.Count(); ++i)
      names.push_back(list.At(i).Text());
    return names;
  }
  /// Writes a course and catalogues it under another name.
  void Add(const samples::CourseSpec &spec, const std::string &name) {
    const std::string path = R"(C:\)" + spec.name + ".hlc";
    samples::WriteCourse(world.Host(path), spec);
    RegisterCourse(state, samples::KeyOf(spec), name, path);
  }

  test::TestWorld world;
  SharedState &state = world.state;
};

} // namespace

TEST_F(CatalogueTest, ACourseHasEmptyMediaAndNoTextAndAReinstallKeepsThem) {
  const std::string key = "{00000000-0000-0000-0000-0000000000AA}";
  ASSERT_TRUE(RegisterCourse(state, key, "Old Elm", R"(C:\a.hlc)"));
  for (const auto &[value, exists] : {std::pair("Picture", true), {"Music", true}, {"AVI", true}, {"Text", false}})
    EXPECT_EQ(RegistryValueExists(state, LocalMachine, CourseEntryKey(key), value), exists) << value;
  SetRegistryValue(state, LocalMachine, CourseEntryKey(key), "Picture", R"(C:\a.bmp)");
  ASSERT_TRUE(RegisterCourse(state, key, "Older Elm", R"(C:\b.hlc)"));
  EXPECT_EQ(GetCourseName(state, key) + GetCourseFilename(state, key), R"(Older ElmC:\b.hlc)");
  EXPECT_EQ(GetCoursePicture(state, key), R"(C:\a.bmp)");
}

TEST_F(CatalogueTest, RowsAreSortedAndFilledAlsoWhereFilesOrValuesAreMissing) {
  const samples::CourseSpec elm{.name = "Elm", .libraries = {{.name = "Trees"}, {.name = "Grass"}}, .size = 5000};
  Add(elm, "old elm");
  Add({.name = "Cut", .libraries = {{.name = "Grass"}}, .lies = {.cutAt = 100}}, "Pine");
  RegisterCourse(state, "{2}", "Oak", R"(C:\missing.hlc)");
  RegisterCourse(state, "{1}", "oak", "");
  SetRegistryValue(state, LocalMachine, CourseEntryKey("{3}"), "", "");
  RegisterLibrary(state, "{4}", "Grass", R"(C:\g.hlb)");
  LoadCourses(state);
  LoadLibraries(state);
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{});
  const ListView &courses = state.lstCourses;
  EXPECT_EQ(Names(courses), (Texts{"", "oak", "Oak", "old elm", "Pine"}));
  const Row &row = courses.At(3);
  EXPECT_EQ(row.Tag() + row.SubItems(column::Filename), samples::KeyOf(elm) + R"(C:\Elm.hlc)");
  EXPECT_EQ(row.SubItems(column::Size), "5000");
  EXPECT_EQ(row.SubItems(column::Libraries), samples::LibraryListOf(elm));
  EXPECT_EQ(courses.SelectedItem(), &courses.At(0)) << "the list in use";
  EXPECT_EQ(state.lstLibraries.SelectedItem(), nullptr);
  EXPECT_EQ(courses.At(4).SubItems(column::Libraries) + courses.At(1).SubItems(column::Size), "0");
}

TEST_F(CatalogueTest, AValueOfAWrongTypeEndsTheLoadAndLeavesNoRowThatLacksSomething) {
  Add({.name = "Elm"}, "Elm");
  Add({.name = "Oak"}, "Oak");
  Add({.name = "Pine"}, "Pine");
  test::FaultyRegistry &registry = test::FaultyRegistry::Install(state);
  for (const char *value : {"Name", "Filename", "AVI"}) {
    registry.wrongType = value;
    registry.rightTypes = 1;
    LoadCourses(state);
    EXPECT_EQ(world.boxes.TakeTexts(), Texts{"frmTurfManager.LoadCourses(): Type mismatch"});
    ASSERT_EQ(state.lstCourses.Count(), 1U) << value;
    EXPECT_NE(state.lstCourses.At(0).SubItems(column::Filename), "");
    EXPECT_EQ(state.lstCourses.SelectedItem(), nullptr);
    EXPECT_FALSE(state.allCoursesListed);
  }
  registry.wrongType.clear();
  LoadCourses(state);
  EXPECT_EQ(state.lstCourses.Count(), 3U);
  EXPECT_TRUE(state.allCoursesListed);
}

} // namespace turfdesk
