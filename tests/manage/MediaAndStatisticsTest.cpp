// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/SideFiles.h"
#include "manage/ClearStatistics.h"
#include "manage/CourseMedia.h"
#include "support/basVorinFile.h"
#include "support/basVorinRegistry.h"

#include "common/GolfWorld.h"
#include "common/UnreadyDrive.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

class MediaAndStatisticsTest : public testing::Test {
protected:
  test::GolfWorld world;
  SharedState &state = world.state;
  Row &elm = world.Course(world.elmKey);
};

} // namespace

TEST_F(MediaAndStatisticsTest, APathThatCannotBeSavedKeepsOnlyItself) {
  const std::string valueNames[] = {"Picture", "Music", "Text"};
  const std::string words[] = {"picture", "music", "text"};
  std::array<std::string, 3> saved = {R"(C:\Media\Elm.bmp)", R"(C:\Golf\Elm.mp3)", R"(C:\Golf\Elm.txt)"};
  for (std::size_t failing = 0; failing < saved.size(); ++failing) {
    world.registry.failingValue = valueNames[failing];
    const std::string path = "no path at all, " + words[failing];
    EXPECT_FALSE(SaveCourseMedia(state, elm, {path, path, path}));
    EXPECT_EQ(world.boxes.TakeTexts(),
              Texts{"Unable to save " + words[failing] + " settings.\r\n\r\nAccess is denied."});
    for (std::size_t i = 0; i < saved.size(); ++i)
      saved[i] = i == failing ? saved[i] : path;
    EXPECT_EQ((std::array{elm.SubItems(column::Picture), elm.SubItems(column::Music), elm.SubItems(column::Text)}),
              saved);
    EXPECT_EQ((std::array{GetCoursePicture(state, world.elmKey), GetCourseMusic(state, world.elmKey),
                          GetCourseText(state, world.elmKey)}),
              saved);
    EXPECT_EQ(GetCourseVideo(state, world.elmKey) + elm.SubItems(column::Video), R"(C:\Golf\Elm.aviC:\Golf\Elm.avi)");
  }
}

TEST_F(MediaAndStatisticsTest, NothingIsSavedForACourseThatAnotherProgramHasChangedOrUninstalled) {
  const std::array<std::string, 3> paths = {"a", "b", "c"};
  test::TestProgram other(world.Home());
  SetRegistryValue(other.state, LocalMachine, CourseEntryKey(world.elmKey), "Music", R"(C:\Other\Elm.mp3)");
  EXPECT_FALSE(SaveCourseMedia(state, elm, paths));
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{"Old Elm\r\n\r\nAnother program has changed the entry of this course. Nothing has been saved."});
  EXPECT_EQ(GetCourseMusic(state, world.elmKey), R"(C:\Other\Elm.mp3)");
  ASSERT_TRUE(DeleteRegistryKey(other.state, LocalMachine, CourseEntryKey(world.elmKey)));
  EXPECT_FALSE(SaveCourseMedia(state, elm, paths));
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{"Old Elm\r\n\r\nThis course is no longer installed. Nothing has been saved."});
  EXPECT_FALSE(CourseKeyExists(state, world.elmKey));
}

TEST_F(MediaAndStatisticsTest, StatisticsAreClearedOfTheSelectedCourseWhicheverListIsActive) {
  const std::string question = "Are you sure you want to clear the statistics for the following course?\r\n\r\nOld Elm";
  const std::filesystem::path file = world.Host(R"(C:\QuillonGolf\Courses\)" + world.elmKey + ".sta");
  state.lstCourses.Select(&elm);
  state.activeList = ActiveLibraries;
  world.Answer({false, true, true, true});
  EXPECT_FALSE(ClearSelectedStatistics(state));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{question});
  test::SetReadOnly(file, true);
  EXPECT_FALSE(ClearSelectedStatistics(state));
  EXPECT_EQ(world.boxes.TakeTexts(), (Texts{question, "Unable to clear statistics."}));
  test::SetReadOnly(file, false);
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(ClearSelectedStatistics(state));
    EXPECT_EQ(world.boxes.TakeTexts(), (Texts{question, "Statistics have been cleared."}));
    EXPECT_FALSE(std::filesystem::exists(file));
  }
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\QuillonGolf\Courses\)" + world.oakKey + ".sta")));
}

TEST_F(MediaAndStatisticsTest, OnlyAGuidNamesAStatisticsFileAndOneThatMayBeThereIsNotCleared) {
  samples::WriteFile(world.Host(R"(C:\QuillonGolf\victim.sta)"), {});
  for (const char *key : {R"(..\victim)", "../victim", "{6BFB0976-4FA7-8999-6FC7-46F9CA3A390}", "{../victim}", ""})
    EXPECT_TRUE(DeleteCourseStats(state, key)) << key;
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\QuillonGolf\victim.sta)")));
  const test::UnreadyDrive drive(world.Home());
  state.installDir = "A:\\Golf";
  EXPECT_FALSE(DeleteCourseStats(state, world.elmKey));
  EXPECT_EQ(GetLastFileError(state), "Disk not ready");
  EXPECT_TRUE(DeleteCourseStats(state, "victim"));
}

} // namespace turfdesk
