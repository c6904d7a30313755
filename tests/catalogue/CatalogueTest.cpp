// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

constexpr const char *Key = "{00000000-0000-0000-0000-0000000000AA}";

} // namespace

TEST(CatalogueTest, AFreshCourseHasEmptyMediaAndNoText) {
  test::TestWorld world;
  SharedState &state = world.state;
  EXPECT_FALSE(CourseKeyExists(state, Key));
  ASSERT_TRUE(RegisterCourse(state, Key, "Old Elm", R"(C:\a.hlc)"));
  EXPECT_EQ(GetCourseName(state, Key) + GetCourseFilename(state, Key), R"(Old ElmC:\a.hlc)");
  for (const char *value : {"Picture", "Music", "AVI"})
    EXPECT_TRUE(RegistryValueExists(state, LocalMachine, CourseEntryKey(Key), value)) << value;
  EXPECT_FALSE(RegistryValueExists(state, LocalMachine, CourseEntryKey(Key), "Text"));
  EXPECT_EQ(GetCourseText(state, Key), "");
  EXPECT_FALSE(LibraryKeyExists(state, Key)) << "courses and libraries are apart";

  SetRegistryValue(state, LocalMachine, CourseEntryKey(Key), "Picture", R"(C:\a.bmp)");
  ASSERT_TRUE(RegisterCourse(state, Key, "Older Elm", R"(C:\b.hlc)"));
  EXPECT_EQ(GetCourseName(state, Key) + GetCourseFilename(state, Key), R"(Older ElmC:\b.hlc)");
  EXPECT_EQ(GetCoursePicture(state, Key), R"(C:\a.bmp)") << "a reinstall keeps the media";
}

TEST(CatalogueTest, AFailedWriteStopsTheLaterOnesAndIsTold) {
  for (const char *failing : {"Name", "Filename", "Picture", "AVI"}) {
    test::TestWorld world;
    test::FaultyRegistry::Install(world.state).failingValue = failing;
    EXPECT_FALSE(RegisterCourse(world.state, Key, "Old Elm", R"(C:\a.hlc)")) << failing;
    EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"Access is denied."});
    EXPECT_FALSE(RegistryValueExists(world.state, LocalMachine, CourseEntryKey(Key), "AVI")) << failing;
  }
  test::TestWorld world;
  test::FaultyRegistry::Install(world.state).failingValue = "Filename";
  EXPECT_FALSE(RegisterLibrary(world.state, Key, "Grass", R"(C:\a.hlb)"));
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"Access is denied."});
  EXPECT_EQ(GetLibraryName(world.state, Key), "Grass") << "what was written stays";
}

} // namespace turfdesk
