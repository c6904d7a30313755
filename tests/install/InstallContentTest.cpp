// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/InstallContent.h"
#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "install/InstallMedia.h"
#include "install/RunInstall.h"
#include "support/basVorinFile.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"
#include "samples/GameFiles.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

constexpr const char *Source = R"(C:\Downloads)";
constexpr const char *Destination = R"(C:\Golf)";

class InstallContentTest : public testing::Test {
protected:
  InstallContentTest() {
    world.MakeFolder(Source);
    world.MakeFolder(Destination);
  }

  std::string Put(const samples::CourseSpec &spec, const std::string &folder = Source) {
    std::string path = folder + R"(\)" + spec.name + ".hlc";
    samples::WriteCourse(world.Host(path), spec);
    return path;
  }
  std::string Put(const samples::LibrarySpec &spec, const std::string &folder = Source) {
    std::string path = folder + R"(\)" + spec.name + ".hlb";
    samples::WriteLibrary(world.Host(path), spec);
    return path;
  }
  bool Course(const std::string &source, const std::string &destDir, const std::vector<bool> &answers = {}) {
    return Run(&InstallCourse, source, destDir, answers);
  }
  bool Library(const std::string &source, const std::string &destDir, const std::vector<bool> &answers = {}) {
    return Run(&InstallLibrary, source, destDir, answers);
  }
  template <typename Routine>
  bool Run(Routine routine, const std::string &source, const std::string &destDir, const std::vector<bool> &answers) {
    world.boxes.answers = {answers.begin(), answers.end()};
    row = nullptr;
    return routine(state, source, destDir, row, world.window.file, world.window.route);
  }

  test::TestWorld world;
  SharedState &state = world.state;
  Row *row = nullptr;
  const samples::CourseSpec elm{.name = "Old Elm"};
  const samples::LibrarySpec grass{.name = "Grass"};
};

using Texts = std::vector<std::string>;

} // namespace

TEST_F(InstallContentTest, ANewCourseIsCopiedCataloguedAndShown) {
  ASSERT_TRUE(Course(Put(elm), Destination));
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row, state.lstCourses.FindKey(samples::KeyOf(elm)));
  EXPECT_EQ(row->Text(), "Old Elm");
  EXPECT_EQ(GetCourseFilename(state, samples::KeyOf(elm)), R"(C:\Golf\Old Elm.hlc)");
  EXPECT_EQ(row->SubItems(column::Filename), R"(C:\Golf\Old Elm.hlc)");
  EXPECT_TRUE(FileExists(state, R"(C:\Downloads\Old Elm.hlc)"));
  EXPECT_EQ(world.window.steps, Texts{R"(Old Elm.hlc|"C:\Downloads" to "C:\Golf")"});
  EXPECT_EQ(world.window.progress.total, 0U) << "nobody set the progress of the state";
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(InstallContentTest, InPlaceNothingIsCopied) {
  ASSERT_TRUE(Course(Put(elm), ""));
  EXPECT_EQ(GetCourseFilename(state, samples::KeyOf(elm)), R"(C:\Downloads\Old Elm.hlc)");
  EXPECT_EQ(world.window.steps, Texts{R"(Old Elm.hlc|"C:\Downloads" to "")"});
}

// The catalogue knows the content, the disk knows the file name; every meeting of the two, for both kinds.
TEST_F(InstallContentTest, DecisionTable) {
  struct Case {
    bool installed;
    bool inPlace;
    bool targetExists;
    const char *asked; // "" goes on without a word
    bool refused;
  };
  const Case cases[] = {
      {true, true, true, " already exists. Do you wish to replace?", false},
      {true, false, true, " already exists. Do you wish to replace?", false},
      {true, false, false, "", false},
      {false, false, true, " needs to be installed in a different directory.", true},
      {false, false, false, "", false},
      {false, true, true, "", false},
  };
  int number = 0;
  for (const Case &c : cases)
    for (const bool isCourse : {true, false}) {
      const std::string name = "Case" + std::to_string(++number);
      const samples::CourseSpec course{.name = name};
      const samples::LibrarySpec library{.name = name};
      const std::string source = isCourse ? Put(course) : Put(library);
      const std::string key = isCourse ? samples::KeyOf(course) : samples::KeyOf(library);
      const std::string target =
          c.inPlace ? source : std::string(Destination) + source.substr(std::string(Source).size());
      if (c.installed)
        (isCourse ? RegisterCourse : RegisterLibrary)(state, key, "was", R"(C:\old)");
      if (c.targetExists && !c.inPlace)
        samples::WriteFile(world.Host(target), samples::ToBytes("another file"));

      const auto run = [&](bool agree) {
        const char *destDir = c.inPlace ? "" : Destination;
        return isCourse ? Course(source, destDir, {agree}) : Library(source, destDir, {agree});
      };
      const std::string message = (isCourse ? "Course" : "Library") + std::string(c.asked) + "\r\n\r\n" + target;
      const std::string refusal =
          (isCourse ? "This course" : "This library") + std::string(c.asked) + "\r\n\r\n" + target;
      const auto nameNow = [&] { return isCourse ? GetCourseName(state, key) : GetLibraryName(state, key); };
      if (c.refused) {
        EXPECT_FALSE(run(true)) << name;
        EXPECT_EQ(world.boxes.TakeTexts(), Texts{refusal});
        EXPECT_EQ(row, nullptr);
        continue;
      }
      if (*c.asked != '\0') {
        EXPECT_TRUE(run(false)) << name;
        EXPECT_EQ(row, nullptr);
        EXPECT_EQ(world.boxes.TakeTexts(), Texts{message});
        EXPECT_EQ(nameNow(), "was");
      }
      EXPECT_TRUE(run(true)) << name;
      EXPECT_EQ(world.boxes.TakeTexts(), *c.asked != '\0' ? Texts{message} : Texts{});
      ASSERT_NE(row, nullptr);
      EXPECT_EQ(row->SubItems(column::Filename), target);
      EXPECT_EQ(nameNow(), name);
      EXPECT_GT(GetFileSize(state, target), 100);
    }
}

TEST_F(InstallContentTest, EachMissingLibraryIsAQuestionAndTheFirstNoEnds) {
  const samples::CourseSpec spec{.name = "Oak", .libraries = {{.name = "Trees"}, grass, {.name = "Water"}}};
  RegisterLibrary(state, samples::KeyOf(grass), "Grass", R"(C:\g.hlb)");
  const auto question = [](const char *name) {
    return std::string("The following required libraries were not found.\r\n\r\n") + name +
           "\r\n\r\n\r\nDo you wish to continue?";
  };
  const std::string source = Put(spec);
  EXPECT_FALSE(Course(source, Destination, {false, true}));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{question("Trees")});
  EXPECT_FALSE(Course(source, Destination, {true, false}));
  EXPECT_EQ(world.boxes.TakeTexts(), (Texts{question("Trees"), question("Water")}));
  EXPECT_FALSE(FileExists(state, R"(C:\Golf\Oak.hlc)"));
  EXPECT_TRUE(Course(source, Destination, {true, true}));
  EXPECT_EQ(row->SubItems(column::Libraries), samples::LibraryListOf(spec));
}

TEST_F(InstallContentTest, FailuresAreToldAndLeaveNothingBehind) {
  EXPECT_FALSE(Course(R"(C:\Downloads\none.hlc)", Destination));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{""});
  samples::CourseSpec cut{.name = "Cut"};
  cut.lies.cutAt = 70;
  EXPECT_FALSE(Course(Put(cut), Destination));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Input past end of file"});
  EXPECT_FALSE(Course(Put(elm), R"(C:\gone)"));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Path not found"});
  EXPECT_FALSE(CourseKeyExists(state, samples::KeyOf(elm)));

  test::FaultyRegistry::Install(state).failingValue = "Filename";
  EXPECT_FALSE(Course(Put(elm), Destination));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Access is denied."});
  EXPECT_EQ(row, nullptr);
  EXPECT_EQ(state.lstCourses.Count(), 0U);
  EXPECT_TRUE(FileExists(state, R"(C:\Golf\Old Elm.hlc)"));
}

TEST_F(InstallContentTest, AReadOnlyTargetHasAdviceForLibrariesOnly) {
  for (const std::string &path : {Put(elm, Destination), Put(grass, Destination)})
    std::filesystem::permissions(world.Host(path), std::filesystem::perms::owner_read);
  RegisterCourse(state, samples::KeyOf(elm), "Old Elm", R"(C:\Golf\Old Elm.hlc)");
  RegisterLibrary(state, samples::KeyOf(grass), "Grass", R"(C:\Golf\Grass.hlb)");
  EXPECT_FALSE(Course(Put(elm), Destination, {true}));
  EXPECT_EQ(world.boxes.TakeTexts().back(), "Path/File access error");
  EXPECT_FALSE(Library(Put(grass), Destination, {true}));
  EXPECT_EQ(world.boxes.TakeTexts().back(),
            "Path/File access error. Make sure the file is not read only and try again.");
  EXPECT_FALSE(Library(Put(grass), R"(C:\gone)", {true}));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Path not found"});
}

TEST_F(InstallContentTest, MediaReachTheRowOnlyAfterTheCatalogue) {
  samples::WriteFile(world.Host(R"(C:\Downloads\notes.txt)"), samples::ToBytes("new"));
  samples::WriteFile(world.Host(R"(C:\Golf\notes.txt)"), samples::ToBytes("old notes"));
  ASSERT_TRUE(Course(Put(elm), Destination));
  Row &course = *row;
  const auto install = [&] {
    return InstallMedia(state, R"(C:\Downloads\notes.txt)", Destination, course, MediaKind::Text, world.window.file,
                        world.window.route);
  };
  auto &registry = test::FaultyRegistry::Install(state);
  registry.failingValue = "Text";
  EXPECT_FALSE(install());
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Access is denied."});
  EXPECT_EQ(course.SubItems(column::Text), "");
  EXPECT_EQ(GetFileSize(state, R"(C:\Golf\notes.txt)"), 3);

  registry.failingValue.clear();
  EXPECT_TRUE(install());
  EXPECT_EQ(course.SubItems(column::Text), R"(C:\Golf\notes.txt)");
  EXPECT_EQ(GetCourseText(state, course.Tag()), R"(C:\Golf\notes.txt)");
  EXPECT_FALSE(InstallMedia(state, R"(C:\Downloads\gone.txt)", Destination, course, MediaKind::Picture,
                            world.window.file, world.window.route));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"File not found"});
  EXPECT_EQ(course.SubItems(column::Picture), "");
}

TEST_F(InstallContentTest, ARunStopsAtTheFirstFailure) {
  Put(elm);
  samples::CourseSpec cut{.name = "Pine"};
  cut.lies.cutAt = 70;
  Put(cut);
  Put(grass);
  EXPECT_FALSE(RunInstall(state, {Source, Destination, {"Old Elm.hlc", "Pine.hlc", "Grass.hlb"}}, world.window));
  EXPECT_EQ(world.window.route.caption, "Install failed.");
  EXPECT_TRUE(CourseKeyExists(state, samples::KeyOf(elm)));
  EXPECT_FALSE(LibraryKeyExists(state, samples::KeyOf(grass)));
  EXPECT_TRUE(RunInstall(state, {Source, Destination, {"Grass.hlb"}}, world.window));
  EXPECT_EQ(world.window.file.caption + "|" + world.window.route.caption, "|Install completed successfully.");
  EXPECT_TRUE(world.window.closeShown);
  EXPECT_EQ(world.window.progress.done, world.window.progress.total);
  EXPECT_EQ(world.screen.pointers.back(), MousePointer::Default);
  EXPECT_EQ(state.workProgress, nullptr);
}

TEST_F(InstallContentTest, TheSameFolderInAnotherCaseIsInPlace) {
  Put(elm);
  EXPECT_TRUE(RunInstall(state, {Source, R"(c:\DOWNLOADS)", {"Old Elm.hlc"}}, world.window));
  EXPECT_EQ(GetCourseFilename(state, samples::KeyOf(elm)), R"(C:\Downloads\Old Elm.hlc)");
}

TEST_F(InstallContentTest, AnUnhandledErrorFailsTheFileWithoutAnotherMessage) {
  samples::CourseSpec spec{.name = "Oak", .libraries = {grass, {.name = "Trees"}}};
  spec.lies.names = std::vector<std::string>{"Grass"};
  Put(spec);
  world.boxes.answers = {true, true};
  EXPECT_FALSE(RunInstall(state, {Source, Destination, {"Oak.hlc"}}, world.window));
  EXPECT_EQ(world.boxes.shown.size(), 1U) << "the library without a name cannot be asked about";
  EXPECT_EQ(world.window.route.caption, "Install failed.");
}

} // namespace turfdesk
