// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "manage/ClearStatistics.h"
#include "manage/CourseMedia.h"

#include "common/GolfWorld.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

class MediaAndStatisticsTest : public testing::Test {
protected:
  Texts Boxes() { return world.boxes.TakeTexts(); }
  /// Picture, music, video and text of Old Elm.
  Texts Catalogued() {
    return {GetCoursePicture(state, world.elmKey), GetCourseMusic(state, world.elmKey),
            GetCourseVideo(state, world.elmKey), GetCourseText(state, world.elmKey)};
  }
  static Texts Shown(const Row &row) {
    return {row.SubItems(column::Picture), row.SubItems(column::Music), row.SubItems(column::Video),
            row.SubItems(column::Text)};
  }

  test::GolfWorld world;
  SharedState &state = world.state;
  Row &elm = world.Course(world.elmKey);
};

} // namespace

TEST_F(MediaAndStatisticsTest, AllThreePathsAreSavedWhateverTheyHold) {
  EXPECT_TRUE(SaveCourseMedia(state, elm, {"no path at all", R"(C:\none\none.wav)", ""}));
  EXPECT_EQ(Boxes(), Texts{});
  const Texts saved = {"no path at all", R"(C:\none\none.wav)", R"(C:\Golf\Elm.avi)", ""};
  EXPECT_EQ(Catalogued(), saved);
  EXPECT_EQ(Shown(elm), saved);
}

TEST_F(MediaAndStatisticsTest, APathThatCannotBeSavedKeepsOnlyItself) {
  const std::pair<const char *, const char *> cases[] = {{"Picture", "picture"}, {"Music", "music"}, {"Text", "text"}};
  const Texts before = Catalogued();
  for (const auto &[valueName, words] : cases) {
    world.registry.failingValue = valueName;
    EXPECT_FALSE(SaveCourseMedia(state, elm, {"P", "M", "T"}));
    EXPECT_EQ(Boxes(), Texts{"Unable to save " + std::string(words) + " settings.\r\n\r\nAccess is denied."});
    Texts saved = {"P", "M", R"(C:\Golf\Elm.avi)", "T"};
    const std::size_t failed = *valueName == 'P' ? 0 : *valueName == 'M' ? 1 : 3;
    saved[failed] = before[failed];
    EXPECT_EQ(Catalogued(), saved);
    EXPECT_EQ(Shown(elm), saved);
    world.registry.failingValue.clear();
    ASSERT_TRUE(SaveCourseMedia(state, elm, {before[0], before[1], before[3]}));
  }
}

TEST_F(MediaAndStatisticsTest, ATreeThatBreaksDownIsToldUnderTheWindowsLabel) {
  world.registry.failingValue = "Music";
  world.registry.onFailure = [] { throw std::runtime_error("The settings are gone."); };
  EXPECT_FALSE(SaveCourseMedia(state, elm, {"P", "M", "T"}));
  EXPECT_EQ(Boxes(), Texts{"frmCourseProperties.Save(): The settings are gone."});
  EXPECT_EQ(Shown(elm), (Texts{"P", R"(C:\Golf\Elm.mp3)", R"(C:\Golf\Elm.avi)", R"(C:\Golf\Elm.txt)"}));
}

TEST_F(MediaAndStatisticsTest, StatisticsAreClearedOfTheSelectedCourseWhicheverListIsActive) {
  const std::string question = "Are you sure you want to clear the statistics for the following course?\r\n\r\nOld Elm";
  const std::filesystem::path file = world.Host(R"(C:\QuillonGolf\Courses\)" + world.elmKey + ".sta");
  const auto clear = [&](bool sure) {
    state.lstCourses.Select(&elm);
    world.Answer({sure});
    return ClearSelectedStatistics(state);
  };
  state.activeList = ActiveLibraries;
  EXPECT_FALSE(clear(false));
  EXPECT_EQ(Boxes(), Texts{question});
  test::SetReadOnly(file, true);
  EXPECT_FALSE(clear(true));
  EXPECT_EQ(world.boxes.shown.back().icon, BoxIcon::Stop);
  EXPECT_EQ(Boxes(), (Texts{question, "Unable to clear statistics."}));
  EXPECT_TRUE(std::filesystem::exists(file));
  test::SetReadOnly(file, false);
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(clear(true));
    EXPECT_EQ(Boxes(), (Texts{question, "Statistics have been cleared."}));
    EXPECT_FALSE(std::filesystem::exists(file));
  }
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\QuillonGolf\Courses\)" + world.oakKey + ".sta")));
  state.lstCourses.Select(nullptr);
  EXPECT_FALSE(ClearSelectedStatistics(state));
  EXPECT_EQ(Boxes(), Texts{"No course or library has been selected."});
  state.lstCourses.Clear();
  EXPECT_FALSE(ClearSelectedStatistics(state));
  EXPECT_EQ(Boxes(), Texts{"No courses installed."});
}

} // namespace turfdesk
