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

using Texts = std::vector<std::string>;

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
  /// By its extension, as a course or a library.
  bool Install(const std::string &source, const std::string &destDir, const std::vector<bool> &answers = {}) {
    world.boxes.answers = {answers.begin(), answers.end()};
    row = nullptr;
    const auto install = source.ends_with(".hlc") ? &InstallCourse : &InstallLibrary;
    return install(state, source, destDir, row, world.window.file, world.window.route);
  }
  bool Run(const Texts &files, const char *destination = Destination) {
    return RunInstall(state, {Source, destination, files}, world.window);
  }
  Texts Boxes() { return world.boxes.TakeTexts(); }

  test::TestWorld world;
  SharedState &state = world.state;
  Row *row = nullptr;
  const samples::CourseSpec elm{.name = "Old Elm"};
  const samples::LibrarySpec grass{.name = "Grass"};
};

} // namespace

// The catalogue knows the content, the disk knows the file name; every meeting of the two, for both kinds.
TEST_F(InstallContentTest, DecisionTable) {
  const std::string replace = " already exists. Do you wish to replace?\r\n\r\n";
  const std::string refuse = " needs to be installed in a different directory.\r\n\r\n";
  struct Case {
    bool installed;
    bool inPlace;
    bool targetExists;
    std::string words; // "" goes on without any
  };
  const Case cases[] = {{true, true, true, replace},  {true, false, true, replace}, {true, false, false, ""},
                        {false, false, true, refuse}, {false, false, false, ""},    {false, true, true, ""}};
  for (const Case &c : cases)
    for (const bool isCourse : {true, false}) {
      const std::string kind = isCourse ? "Course" : "Library";
      const std::string name = "Case" + std::to_string(&c - cases);
      SCOPED_TRACE(kind + name);
      const std::string source = isCourse ? Put(samples::CourseSpec{name}) : Put(samples::LibrarySpec{name});
      const std::string key = isCourse ? KeyOf(samples::CourseSpec{name}) : KeyOf(samples::LibrarySpec{name});
      const char *const folder = c.inPlace ? Source : Destination;
      const std::string target = folder + source.substr(source.rfind('\\'));
      if (c.installed)
        (isCourse ? RegisterCourse : RegisterLibrary)(state, key, "was", R"(C:\old)");
      if (c.targetExists && !c.inPlace)
        samples::WriteFile(world.Host(target), samples::ToBytes("another file"));
      Texts words;
      if (c.words == replace)
        words = {std::string(kind).append(replace).append(target)};
      if (c.words == refuse)
        words = {std::string(isCourse ? "This course" : "This library").append(refuse).append(target)};
      const auto nameNow = [&] { return (isCourse ? GetCourseName : GetLibraryName)(state, key); };
      const char *const destination = c.inPlace ? "" : Destination;
      if (!words.empty()) {
        EXPECT_EQ(Install(source, destination, {false}), c.words == replace);
        EXPECT_EQ(row, nullptr);
        EXPECT_EQ(Boxes(), words);
        EXPECT_EQ(nameNow(), c.installed ? "was" : "");
      }
      ASSERT_EQ(Install(source, destination, {true}), c.words != refuse);
      EXPECT_EQ(Boxes(), words);
      if (c.words == refuse)
        continue;
      ASSERT_NE(row, nullptr);
      EXPECT_EQ(row->Text() + row->SubItems(column::Filename), name + target);
      EXPECT_EQ(nameNow(), name);
      EXPECT_EQ((isCourse ? GetCourseFilename : GetLibraryFilename)(state, key), target);
      EXPECT_EQ(GetFileSize(state, target), 4096);
      EXPECT_TRUE(FileExists(state, source));
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
  EXPECT_FALSE(Install(source, Destination, {false, true}));
  EXPECT_EQ(Boxes(), Texts{question("Trees")});
  EXPECT_FALSE(Install(source, Destination, {true, false}));
  EXPECT_EQ(Boxes(), (Texts{question("Trees"), question("Water")}));
  EXPECT_FALSE(FileExists(state, R"(C:\Golf\Oak.hlc)"));
  EXPECT_TRUE(Install(source, Destination, {true, true}));
}

TEST_F(InstallContentTest, FailuresAreToldAndLeaveNothingBehind) {
  EXPECT_FALSE(Install(R"(C:\Downloads\none.hlc)", Destination));
  EXPECT_EQ(Boxes(), Texts{""});
  EXPECT_FALSE(Install(Put({.name = "Cut", .lies = {.cutAt = 70}}), Destination));
  EXPECT_EQ(Boxes(), Texts{"Input past end of file"});
  EXPECT_FALSE(Install(Put(elm), R"(C:\gone)"));
  EXPECT_EQ(Boxes(), Texts{"Path not found"});
  EXPECT_FALSE(CourseKeyExists(state, samples::KeyOf(elm)));

  test::FaultyRegistry::Install(state).failingValue = "Filename";
  EXPECT_FALSE(Install(Put(elm), Destination));
  EXPECT_EQ(Boxes(), Texts{"Access is denied."});
  EXPECT_EQ(row, nullptr);
  EXPECT_EQ(state.lstCourses.Count(), 0U);
}

TEST_F(InstallContentTest, AReadOnlyTargetHasAdviceForLibrariesOnly) {
  for (const std::string &path : {Put(elm, Destination), Put(grass, Destination)})
    test::SetReadOnly(world.Host(path), true);
  RegisterCourse(state, samples::KeyOf(elm), "Old Elm", R"(C:\Golf\Old Elm.hlc)");
  RegisterLibrary(state, samples::KeyOf(grass), "Grass", R"(C:\Golf\Grass.hlb)");
  EXPECT_FALSE(Install(Put(elm), Destination, {true}));
  EXPECT_EQ(Boxes().back(), "Path/File access error");
  EXPECT_FALSE(Install(Put(grass), Destination, {true}));
  EXPECT_EQ(Boxes().back(), "Path/File access error. Make sure the file is not read only and try again.");
  EXPECT_FALSE(Install(Put(grass), R"(C:\gone)", {true}));
  EXPECT_EQ(Boxes(), Texts{"Path not found"});
}

TEST_F(InstallContentTest, MediaReachTheRowOnlyAfterTheCatalogue) {
  samples::WriteFile(world.Host(R"(C:\Downloads\notes.txt)"), samples::ToBytes("new"));
  ASSERT_TRUE(Install(Put(elm), Destination));
  Row &course = *row;
  const auto install = [&](const std::string &path) {
    return InstallMedia(state, path, Destination, course, MediaKind::Text, world.window.file, world.window.route);
  };
  auto &registry = test::FaultyRegistry::Install(state);
  registry.failingValue = "Text";
  EXPECT_FALSE(install(R"(C:\Downloads\notes.txt)"));
  EXPECT_EQ(Boxes(), Texts{"Access is denied."});
  registry.failingValue.clear();
  EXPECT_FALSE(install(R"(C:\Downloads\gone.txt)"));
  EXPECT_EQ(Boxes(), Texts{"File not found"});
  EXPECT_EQ(course.SubItems(column::Text), "");
}

TEST_F(InstallContentTest, ARunStopsAtTheFirstFailure) {
  Put(elm);
  Put({.name = "Pine", .lies = {.cutAt = 70}});
  Put(grass);
  EXPECT_FALSE(Run({"Old Elm.hlc", "Pine.hlc", "Grass.hlb"}));
  EXPECT_TRUE(CourseKeyExists(state, samples::KeyOf(elm)));
  EXPECT_FALSE(LibraryKeyExists(state, samples::KeyOf(grass)));
  EXPECT_TRUE(Run({"Grass.hlb"}));
  EXPECT_EQ(world.window.progress.done, world.window.progress.total);
  EXPECT_EQ(world.screen.pointers, (std::vector{MousePointer::Hourglass, MousePointer::Default, MousePointer::Hourglass,
                                                MousePointer::Default}));
}

TEST_F(InstallContentTest, ALibraryThatGoesUnderAQuestionKeepsTheCourseFromBeingInstalled) {
  ASSERT_TRUE(Install(Put(grass), Destination));
  const samples::CourseSpec oak{.name = "Oak", .libraries = {grass, {.name = "Trees"}}};
  world.boxes.decide = [this](const MessageBox &) {
    test::TestProgram other(world.Home());
    return DeleteRegistryKey(other.state, LocalMachine, LibraryEntryKey(samples::KeyOf(grass)));
  };
  EXPECT_FALSE(Install(Put(oak), Destination));
  EXPECT_FALSE(CourseKeyExists(state, samples::KeyOf(oak)));
}

TEST_F(InstallContentTest, TheSameFolderInAnotherCaseIsInPlace) {
  Put(elm);
  EXPECT_TRUE(Run({"Old Elm.hlc"}, R"(c:\DOWNLOADS)"));
  EXPECT_EQ(GetCourseFilename(state, samples::KeyOf(elm)), R"(C:\Downloads\Old Elm.hlc)");
}

TEST_F(InstallContentTest, AnUnhandledErrorFailsTheFileWithoutAnotherMessage) {
  Put({.name = "Oak", .libraries = {grass, {.name = "Trees"}}, .lies = {.names = Texts{"Grass"}}});
  world.boxes.answers = {true, true};
  EXPECT_FALSE(Run({"Oak.hlc"}));
  EXPECT_EQ(world.boxes.shown.size(), 1U) << "the library without a name cannot be asked about";
}

} // namespace turfdesk
