// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"
#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "shell/FileTypes.h"
#include "shell/Main.h"
#include "support/Registry.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"
#include "samples/GameFiles.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

Texts RowTexts(const ListView &list) {
  Texts texts;
  for (std::size_t i = 0; i < list.Count(); ++i)
    texts.push_back(list.At(i).Text());
  return texts;
}

} // namespace

TEST(MainTest, TheCommandTailIsOnePath) {
  test::TestWorld world;
  const std::pair<const char *, const char *> cases[] = {{"", ""},
                                                         {R"(")", ""},
                                                         {R"("C:\My Courses\a b.hlz")", R"(C:\My Courses\a b.hlz)"},
                                                         {R"(  C:\a b.hlz )", R"(C:\a b.hlz)"}};
  for (const auto &[tail, file] : cases) {
    ASSERT_TRUE(Main(world.state, tail));
    EXPECT_EQ(world.state.commandFile, file) << tail;
  }
}

TEST(MainTest, ReadsItsSettingsOnceWithDefaults) {
  test::TestWorld world;
  SharedState &state = world.state;
  EXPECT_EQ(state.installDir + "|" + state.defaultDir, R"(C:\QuillonGolf|C:\QuillonGolf)");
  EXPECT_TRUE(state.workingAvi.ends_with(R"(\working.avi)"));
  SetRegistryValue(state, LocalMachine, BaseKey, "InstallDir", R"(D:\Golf)");
  ASSERT_TRUE(Main(state, ""));
  EXPECT_EQ(state.defaultDir, R"(D:\Golf)");
}

TEST(LoadListsTest, RowsAreSortedAndTheListInUseHasItsFirstRowSelected) {
  test::TestWorld world;
  SharedState &state = world.state;
  const samples::CourseSpec elm{.name = "Old Elm", .libraries = {{.name = "Grass"}}};
  samples::WriteCourse(world.Host(R"(C:\elm.hlc)"), elm);
  RegisterCourse(state, samples::KeyOf(elm), "old elm", R"(C:\elm.hlc)");
  RegisterCourse(state, "{2}", "Oak", R"(C:\missing.hlc)");
  RegisterCourse(state, "{1}", "oak", "");
  SetRegistryValue(state, LocalMachine, CourseEntryKey("{3}"), "", "");
  RegisterLibrary(state, "{4}", "Grass", R"(C:\g.hlb)");
  LoadCourses(state);
  LoadLibraries(state);
  EXPECT_EQ(RowTexts(state.lstCourses), (Texts{"", "oak", "Oak", "old elm"}));
  EXPECT_EQ(state.lstCourses.At(3).SubItems(3), samples::LibraryListOf(elm));
  EXPECT_EQ(state.lstCourses.SelectedItem(), &state.lstCourses.At(0));
  EXPECT_EQ(state.lstLibraries.SelectedItem(), nullptr);

  ActivateList(state, ActiveLibraries);
  LoadCourses(state);
  LoadLibraries(state);
  EXPECT_EQ(state.lstCourses.SelectedItem(), nullptr);
  EXPECT_EQ(state.lstLibraries.SelectedItem(), &state.lstLibraries.At(0));
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST(LoadListsTest, EmptyListsAreToldOnlyWhenACommandAsks) {
  test::TestWorld world;
  LoadCourses(world.state);
  LoadLibraries(world.state);
  EXPECT_TRUE(world.boxes.shown.empty());
  EXPECT_FALSE(ListHasItems(world.state, ActiveCourses));
  EXPECT_FALSE(ListHasItems(world.state, ActiveLibraries));
  EXPECT_EQ(world.boxes.TakeTexts(), (Texts{"No courses installed.", "No libraries installed."}));
  world.state.lstLibraries.Add("{1}", "x");
  EXPECT_TRUE(ListHasItems(world.state, ActiveLibraries));
  EXPECT_TRUE(ListHasItems(world.state, 3));
}

TEST(FileTypesTest, AreWrittenAtEveryStart) {
  test::TestWorld world;
  RegisterFileTypes(world.state);
  SetKeyValue(world.state, ".hlc", "", "Somebody else's", RegSz);
  RegisterFileTypes(world.state);
  const std::pair<const char *, const char *> types[] = {
      {".hlb", "KESTRAVON Library"}, {".hlc", "KESTRAVON Course"}, {".hlz", "KESTRAVON Compressed Course"}};
  for (const auto &[extension, text] : types) {
    RegistryHandle key = 0;
    std::string value;
    ASSERT_EQ(world.platform->DirectRegistry().RegOpenKeyExA(RegistryRoot::ClassesRoot, extension, key), RegSuccess);
    EXPECT_EQ(QueryValueEx(world.state, key, "", value), RegSuccess);
    EXPECT_STREQ(value.c_str(), text);
    world.platform->DirectRegistry().RegCloseKey(key);
  }
  EXPECT_TRUE(world.boxes.shown.empty());
}

} // namespace turfdesk
