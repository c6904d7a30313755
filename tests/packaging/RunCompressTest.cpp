// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "packaging/RunCompress.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "support/basVorinFile.h"

#include "common/TestWorld.h"
#include "common/UnreadyDrive.h"
#include "samples/GameFiles.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

class RunCompressTest : public testing::Test {
protected:
  RunCompressTest() {
    samples::WriteCourse(world.Host(R"(C:\Golf\Elm.hlc)"), {.name = "Elm"});
    samples::WriteLibrary(world.Host(R"(C:\Golf\Grass.hlb)"), {.name = "Grass"});
    samples::WriteFile(world.Host(R"(C:\Golf\Elm.bmp)"), samples::ToBytes("picture"));
    request.packageName = R"(C:\Golf\Elm.hlz)";
    request.courseFile = R"(C:\Golf\Elm.hlc)";
    request.media[0] = R"(C:\Golf\Elm.bmp)";
    request.libraries = {{R"(C:\Golf\Grass.hlb)", true}};
  }

  bool Run(const std::vector<bool> &answers = {}) {
    world.boxes.answers = {answers.begin(), answers.end()};
    return RunCompress(state, request, world.window);
  }
  test::TestWorld world;
  SharedState &state = world.state;
  CompressRequest request;
};

const std::string Route = R"(|"C:\Golf" to "C:\Golf\Elm.hlz")";
const char *const MissingMedia = "\r\n\r\nFile does not exist. Do you wish to continue compressing without this file?";
const char *const MissingLibrary =
    "\r\n\r\nLibrary files does not exist. Do you wish to continue compressing without this library?";

} // namespace

TEST_F(RunCompressTest, WritesWhatTheRequestNames) {
  request.libraries.push_back({R"(C:\Golf\unchecked and missing.hlb)", false});
  request.media[3] = R"(c:\GOLF\.\elm.BMP)"; // the picture once more
  EXPECT_TRUE(Run());
  EXPECT_TRUE(world.window.progress.IsFull());
  EXPECT_TRUE(world.boxes.shown.empty());
  EXPECT_EQ(world.window.steps, (Texts{"Elm.hlc" + Route, "Elm.bmp" + Route, "Grass.hlb" + Route}));
  EXPECT_EQ(world.window.file.caption + "|" + world.window.route.caption,
            "|Course files have been successfully compressed.");
  EXPECT_TRUE(world.window.closeShown);
}

TEST_F(RunCompressTest, QuestionsComeInTheOrderOfTheEntriesAndTheFirstNoEnds) {
  samples::WriteFile(world.Host(request.packageName), samples::ToBytes("old package"));
  request.media = {R"(C:\Golf\no.bmp)", R"(C:\Golf\no.wav)", "", R"(C:\Golf\no.txt)"};
  request.libraries.push_back({"", true});
  const Texts all = {request.packageName + "\r\n\r\nFile already exists. Do you wish to replace?",
                     R"(C:\Golf\no.bmp)" + std::string(MissingMedia), R"(C:\Golf\no.wav)" + std::string(MissingMedia),
                     R"(C:\Golf\no.txt)" + std::string(MissingMedia), MissingLibrary};
  for (std::size_t refused = 0; refused < all.size(); ++refused) {
    std::vector<bool> answers(all.size(), true);
    answers[refused] = false;
    EXPECT_FALSE(Run(answers));
    EXPECT_EQ(world.boxes.TakeTexts(), Texts(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(refused) + 1));
    EXPECT_EQ(world.window.route.caption, "Error compressing course files.");
    EXPECT_EQ(GetFileSize(state, request.packageName), 11) << "the old package is untouched";
  }
  world.window.steps.clear();
  world.window.route.caption.clear();
  EXPECT_TRUE(Run(std::vector<bool>(all.size(), true)));
  EXPECT_EQ(world.window.steps, (Texts{"Elm.hlc" + Route, "Grass.hlb" + Route}));
}

TEST_F(RunCompressTest, NamesAndSourcesThatCannotBeUsed) {
  request.packageName = R"(C:\Golf\what?.hlz)";
  EXPECT_FALSE(Run());
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{"C:\\Golf\\what?.hlz\r\n\r\nCompress filename is invalid. Please select a valid filename."});
  request.packageName = R"(C:\Golf\new.hlz)";
  request.courseFile = R"(C:\Golf\gone.hlc)";
  EXPECT_FALSE(Run());
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"C:\\Golf\\gone.hlc\r\n\r\nCourse file does not exist."});
  EXPECT_FALSE(FileExists(state, request.packageName));
}

TEST_F(RunCompressTest, AFileThatGoesIntoThePackageIsNotReplacedByItHoweverItIsNamed) {
  Texts names = {R"(C:\Golf\Elm.hlc)", R"(c:\golf\ELM.HLC)"};
  for (const std::string &alias : test::MakeAliases(world.Home(), R"(C:\Golf)"))
    names.push_back(alias + R"(\Elm.hlc)");
  for (const std::string &name : names) {
    request.packageName = name;
    EXPECT_FALSE(Run({true}));
    EXPECT_EQ(world.boxes.TakeTexts().back(), "Error 130:  Bad call.");
    EXPECT_TRUE(world.window.steps.back().starts_with("Elm.hlc|")) << "what the message is about";
    EXPECT_FALSE(world.window.progress.IsFull());
  }
  EXPECT_EQ(GetFileSize(state, R"(C:\Golf\Elm.hlc)"), 4096);
}

TEST_F(RunCompressTest, TheProposalNamesAlsoWhatIsNotCatalogued) {
  Row &row = state.lstCourses.Add("{A}", "Oak");
  row.SetTag("{A}");
  row.SetSubItems(column::Filename, R"(C:\Golf\Oak.v2.hlc)");
  row.SetSubItems(column::Libraries, "{B},{C}");
  RegisterLibrary(state, "{B}", "Grass", R"(C:\Golf\Grass.hlb)");
  ListView libraries;
  const CompressRequest proposed = ProposeCompress(state, row, libraries);
  EXPECT_EQ(proposed.packageName, R"(C:\Golf\Oak.v2.hlz)");
  ASSERT_EQ(proposed.libraries.size(), 2U);
  EXPECT_EQ(proposed.libraries[0].path + "|" + proposed.libraries[1].path, R"(C:\Golf\Grass.hlb|)");
  EXPECT_TRUE(CourseMayBeCompressed(state, row)) << "the list of the program refuses no real key";
  state.noCompressCourses = {"", "{a}"};
  EXPECT_FALSE(CourseMayBeCompressed(state, row)) << "the names differ only in case";
}

TEST_F(RunCompressTest, ACourseOutOfReachIsRefusedWithTheReasonUntilItCanBeRead) {
  samples::CourseSpec spec{.name = "Oak", .libraries = {{.name = "Grass"}}};
  samples::WriteCourse(world.Host(R"(C:\Golf\Oak.hlc)"), spec);
  const test::UnreadyDrive drive(world.Home());
  const std::string key = samples::KeyOf(spec);
  RegisterCourse(state, key, "Oak", R"(A:\Oak.hlc)");
  Row &row = state.lstCourses.Add(key, "Oak");
  FillCourseRow(state, key, row);
  EXPECT_FALSE(CourseMayBeCompressed(state, row));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"A:\\Oak.hlc\r\n\r\nDisk not ready"});
  RegisterCourse(state, key, "Oak", R"(C:\Golf\Oak.hlc)");
  EXPECT_TRUE(CourseMayBeCompressed(state, row));
  EXPECT_EQ(row.SubItems(column::Libraries), samples::LibraryListOf(spec)) << "the package is to hold them";
}

} // namespace turfdesk
