// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/Uninstall.h"

#include "catalogue/Catalogue.h"
#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "support/basVorinRegistry.h"

#include "common/GolfWorld.h"
#include "common/UnreadyDrive.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

constexpr const char *Blank = "\r\n\r\n";

std::string Sure(const std::string &course) {
  return "Are you sure you want to delete the following course and it's associated files?" + (Blank + course);
}

std::string SureOfLibrary(const std::string &library) {
  return "Are you sure you want to delete the following library and it's associated files?" + (Blank + library) +
         "\r\n\r\nWARNING: Uninstalling a library that is used by a course will make that course unplayable, "
         "\r\nand attempting to play that course will cause Marrowfell 2002 to exit.";
}

std::string Orphan(const std::string &library) {
  return "This course uses the following library which is not being used by any other course." + (Blank + library) +
         "\r\n\r\nDo you wish to delete it?";
}

std::string UsedBy(const std::string &course) {
  return "This library is used by the following course(s)." + (Blank + course) + "\r\n\r\nDo you wish to continue?";
}

class UninstallTest : public testing::Test {
protected:
  bool Course(const std::string &key, const std::vector<bool> &answers) {
    return Run(world, ActiveCourses, key, answers);
  }
  bool Library(const std::string &key, const std::vector<bool> &answers) {
    return Run(world, ActiveLibraries, key, answers);
  }
  static bool Run(test::GolfWorld &on, std::int32_t which, const std::string &key, const std::vector<bool> &answers) {
    ActivateList(on.state, which);
    ListView &list = which == ActiveCourses ? on.state.lstCourses : on.state.lstLibraries;
    list.Select(list.FindKey(key));
    on.Answer(answers);
    return UninstallSelected(on.state);
  }
  Texts Boxes() { return world.boxes.TakeTexts(); }
  bool Shows(const std::string &libraryKey) { return world.state.lstLibraries.FindKey(libraryKey) != nullptr; }

  test::GolfWorld world;
  const std::map<std::string, std::string> filesBefore = test::FilesOnDrive(world.Home());
  const std::string statistics = R"(C:\QuillonGolf\Courses\)" + world.elmKey + ".sta";
  const std::string grassSwapFile = R"(C:\QuillonGolf\SwapFiles\)" + world.grassKey + ".swp";
  const std::string treesSwapFile = R"(C:\QuillonGolf\SwapFiles\)" + world.treesKey + ".swp";
};

} // namespace

TEST_F(UninstallTest, DeletesInItsOrderWhateverIsAnsweredForTwoOrphans) {
  for (const bool grassGoes : {false, true})
    for (const bool treesGo : {false, true}) {
      test::GolfWorld fresh;
      EXPECT_TRUE(Run(fresh, ActiveCourses, fresh.elmKey, {true, grassGoes, treesGo}));
      EXPECT_EQ(fresh.boxes.TakeTexts(), (Texts{Sure("Old Elm"), Orphan("Grass"), Orphan("Trees"),
                                                "Old Elm\r\n\r\nCourse was successfully uninstalled."}));
      Texts deleted = {R"(C:\Media\Elm.bmp)", R"(C:\Golf\Elm.mp3)", R"(C:\Golf\Elm.avi)", R"(C:\Golf\Elm.txt)",
                       statistics};
      if (grassGoes)
        deleted.insert(deleted.end(), {R"(C:\Golf\Grass.hlb)", fresh.grassKey, grassSwapFile});
      if (treesGo)
        deleted.insert(deleted.end(), {R"(C:\Golf\Trees.hlb)", fresh.treesKey, treesSwapFile});
      deleted.insert(deleted.end(), {R"(C:\Golf\Elm.hlc)", fresh.elmKey});
      EXPECT_EQ(fresh.TakeDeleted(), deleted);

      EXPECT_EQ(fresh.state.lstCourses.FindKey(fresh.elmKey), nullptr);
      EXPECT_EQ(fresh.state.lstLibraries.FindKey(fresh.grassKey) == nullptr, grassGoes);
      EXPECT_EQ(fresh.state.lstLibraries.FindKey(fresh.treesKey) == nullptr, treesGo);
    }
}

TEST_F(UninstallTest, AnOrphanIsALibraryThatIsCataloguedAndThatNoOtherCourseLists) {
  world.registry.DeleteKey(LibraryEntryKey(world.grassKey));
  EXPECT_TRUE(Course(world.oakKey, {true}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Oak"), "Oak\r\n\r\nCourse was successfully uninstalled."}));
  EXPECT_TRUE(Course(world.elmKey, {true, true, true}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Old Elm"), Orphan("Trees"), Orphan("Water"),
                            "Old Elm\r\n\r\nCourse was successfully uninstalled."}));
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Golf\Grass.hlb)")));
  EXPECT_EQ(world.state.lstCourses.Count(), 0U);
  EXPECT_FALSE(Course("", {}));
  EXPECT_EQ(Boxes(), Texts{"No courses installed."});
}

TEST_F(UninstallTest, NoLibraryGoesWhileACourseIsMissingFromTheList) {
  world.registry.wrongType = "Filename";
  world.registry.rightTypes = 1;
  LoadCourses(world.state);
  world.registry.wrongType.clear();
  EXPECT_EQ(Boxes(), Texts{"frmTurfManager.LoadCourses(): Type mismatch"});
  ASSERT_EQ(world.state.lstCourses.Count(), 1U);
  EXPECT_TRUE(Course(world.oakKey, {true}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Oak"), "Oak\r\n\r\nCourse was successfully uninstalled."})) << "Old Elm needs Water";
  EXPECT_FALSE(Library(world.waterKey, {true, true}));
  EXPECT_EQ(Boxes(),
            (Texts{SureOfLibrary("Water"), "Some courses could not be read, and may use this library. It is kept.",
                   "Unable to uninstall library."}));
}

TEST_F(UninstallTest, ALibraryAsksOnceForEachCourseThatUsesIt) {
  const Texts questions = {SureOfLibrary("Water"), UsedBy("Oak"), UsedBy("Old Elm")};
  for (std::size_t refused = 0; refused < questions.size(); ++refused) {
    std::vector<bool> answers(questions.size(), true);
    answers[refused] = false;
    EXPECT_FALSE(Library(world.waterKey, answers));
    Texts shown(questions.begin(), questions.begin() + static_cast<std::ptrdiff_t>(refused) + 1);
    if (refused > 0)
      shown.push_back("Unable to uninstall library.");
    EXPECT_EQ(Boxes(), shown);
    EXPECT_EQ(test::FilesOnDrive(world.Home()), filesBefore);
    EXPECT_TRUE(Shows(world.waterKey));
  }
  EXPECT_TRUE(Library(world.waterKey, {true, true, true}));
  EXPECT_EQ(Boxes().back(), "Water\r\n\r\nLibrary was successfully uninstalled.");
  EXPECT_EQ(world.TakeDeleted(), (Texts{R"(C:\Golf\Water.hlb)", world.waterKey}));
  EXPECT_FALSE(Shows(world.waterKey));
  EXPECT_NE(world.Course(world.oakKey).SubItems(3).find(world.waterKey), std::string::npos) << "other rows stay";
}

TEST_F(UninstallTest, ACourseOutOfReachIsNamedBeforeTheFirstOrphanAndWhatMayBeLeftOfItAtTheEnd) {
  const test::UnreadyDrive drive(world.Home());
  for (const char *file : {R"(C:\none.hlc)", R"(A:\Oak.hlc)"}) {
    SetRegistryValue(world.state, LocalMachine, CourseEntryKey(world.oakKey), "Filename", file);
    LoadCourses(world.state);
  }
  EXPECT_TRUE(Course(world.elmKey, {true, false, false, false}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Old Elm"),
                            std::string("These courses could not be read, and may use the libraries that you are ") +
                                "asked about.\r\n\r\nOak: Disk not ready",
                            Orphan("Grass"), Orphan("Trees"), Orphan("Water"),
                            "Old Elm\r\n\r\nCourse was successfully uninstalled."}));
  EXPECT_TRUE(Course(world.oakKey, {true}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Oak"), "These files could not be deleted.\r\n\r\nA:\\Oak.hlc: Disk not ready",
                            "Oak\r\n\r\nCourse was successfully uninstalled."}));
}

TEST_F(UninstallTest, AKeyThatIsKnownToStayKeepsEverything) {
  world.registry.undeletable = true;
  EXPECT_FALSE(Course(world.elmKey, {true, true, true}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Old Elm"), "Access is denied.", "Unable to uninstall course."}));
  EXPECT_FALSE(Library(world.grassKey, {true, true}));
  EXPECT_EQ(Boxes(),
            (Texts{SureOfLibrary("Grass"), UsedBy("Old Elm"), "Access is denied.", "Unable to uninstall library."}));
  EXPECT_EQ(test::FilesOnDrive(world.Home()), filesBefore);
  EXPECT_EQ(world.TakeDeleted(), Texts{});
  EXPECT_EQ(world.state.lstCourses.Count() + world.state.lstLibraries.Count(), 5U);
}

TEST_F(UninstallTest, WhatAnotherProgramChangesUnderAQuestionStopsTheWork) {
  const std::string changed = "The catalogue was changed by another program.\r\n\r\n";
  const std::string stillThere = "The course is still installed. Its media and statistics have been deleted.";
  const std::string grassGone = "\r\n\r\nGrass\r\nThis library has been uninstalled.";
  const Texts questions = {Sure("Old Elm"), Orphan("Grass"), Orphan("Trees")};
  const Texts words = {changed + "Nothing has been uninstalled.", changed + stillThere,
                       changed + stillThere + grassGone};
  for (std::size_t stage = 0; stage < questions.size(); ++stage) {
    test::GolfWorld fresh;
    const auto before = test::FilesOnDrive(fresh.Home());
    fresh.boxes.decide = [&](const MessageBox &box) {
      // A course that needs whatever is asked about.
      if (box.text == questions[stage]) {
        test::TestProgram other(fresh.Home());
        RegisterCourse(other.state, "{N}", "Need", R"(C:\Golf\Oak.hlc)");
      }
      return true;
    };
    EXPECT_FALSE(Run(fresh, ActiveCourses, fresh.elmKey, {}));
    Texts shown(questions.begin(), questions.begin() + static_cast<std::ptrdiff_t>(stage) + 1);
    shown.insert(shown.end(), {words[stage], "Unable to uninstall course."});
    EXPECT_EQ(fresh.boxes.TakeTexts(), shown);
    EXPECT_TRUE(CourseKeyExists(fresh.state, fresh.elmKey));
    EXPECT_TRUE(std::filesystem::exists(fresh.Host(R"(C:\Golf\Elm.hlc)")));
    EXPECT_TRUE(std::filesystem::exists(fresh.Host(R"(C:\Golf\Trees.hlb)")));
    EXPECT_EQ(std::filesystem::exists(fresh.Host(R"(C:\Golf\Grass.hlb)")), stage < 2);
    EXPECT_EQ(test::FilesOnDrive(fresh.Home()) == before, stage == 0);
  }
}

TEST_F(UninstallTest, ACourseReplacedUnderAQuestionKeepsTheLibraryThatItNowNeeds) {
  world.boxes.decide = [&](const MessageBox &box) {
    // The entry stays what it was.
    samples::CourseSpec oak = world.oak;
    oak.libraries = {world.grass};
    if (box.text == Orphan("Grass"))
      samples::WriteCourse(world.Host(R"(C:\Golf\Oak.hlc)"), oak);
    return true;
  };
  EXPECT_FALSE(Run(world, ActiveCourses, world.elmKey, {}));
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Golf\Grass.hlb)")));
  EXPECT_TRUE(Run(world, ActiveCourses, world.elmKey, {}));
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Golf\Grass.hlb)")));
  EXPECT_FALSE(std::filesystem::exists(world.Host(R"(C:\Golf\Water.hlb)")));
}

TEST_F(UninstallTest, AKeyThatIsGoneIsToldAndKeepsTheFiles) {
  world.registry.undeletable = true;
  EXPECT_FALSE(Library(world.treesKey, {true, true}));
  world.registry.undeletable = false;
  Boxes();
  world.registry.DeleteKey(LibraryEntryKey(world.grassKey));
  EXPECT_FALSE(Library(world.grassKey, {true, true}));
  const Texts boxes = Boxes();
  ASSERT_EQ(boxes.size(), 4U);
  EXPECT_TRUE(boxes[2].starts_with("There is no such settings key")) << boxes[2];
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Golf\Grass.hlb)")));
}

TEST_F(UninstallTest, AValueThatCannotBeReadKeepsEverything) {
  for (const char *value : {"Filename", "Text"}) {
    world.registry.wrongType = value;
    EXPECT_FALSE(Course(world.elmKey, {true}));
    EXPECT_EQ(Boxes(), (Texts{Sure("Old Elm"), "frmTurfManager.btnCourseUninstall_Click(): Type mismatch"}));
  }
  EXPECT_EQ(world.TakeDeleted(), Texts{});
}

TEST_F(UninstallTest, AKeyThatStaysAgainstExpectationOutlivesItsFiles) {
  world.registry.undeletable = world.registry.surprise = true;
  EXPECT_FALSE(Library(world.grassKey, {true, true}));
  EXPECT_EQ(Boxes(),
            (Texts{SureOfLibrary("Grass"), UsedBy("Old Elm"), "Access is denied.", "Unable to uninstall library."}));
  EXPECT_EQ(world.TakeDeleted(), Texts{R"(C:\Golf\Grass.hlb)"}) << "the swap file stays with the key";
  EXPECT_TRUE(Shows(world.grassKey));

  EXPECT_FALSE(Course(world.elmKey, {true, true, true}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Old Elm"), Orphan("Grass"), "Access is denied.", Orphan("Trees"), "Access is denied.",
                            "Access is denied.", "Unable to uninstall course."}));
  EXPECT_EQ(world.TakeDeleted().back(), R"(C:\Golf\Elm.hlc)");
  EXPECT_NE(world.state.lstCourses.FindKey(world.elmKey), nullptr);
}

TEST_F(UninstallTest, AnOrphanWhoseKeyStaysDoesNotKeepTheCourse) {
  world.registry.changes = 0;
  world.registry.firstFailing = 1;
  world.registry.lastFailing = 500; // a key is tried so often
  EXPECT_TRUE(Course(world.elmKey, {true, true, true}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Old Elm"), Orphan("Grass"), "Access is denied.", Orphan("Trees"),
                            "Old Elm\r\n\r\nCourse was successfully uninstalled."}));
  EXPECT_TRUE(Shows(world.grassKey));
  EXPECT_FALSE(Shows(world.treesKey));
}

TEST_F(UninstallTest, FilesThatAreMissingOrStayDoNotKeepTheRest) {
  for (const char *missing : {R"(C:\Golf\Elm.hlc)", R"(C:\Golf\Elm.avi)", R"(C:\Golf\Grass.hlb)"})
    std::filesystem::remove(world.Host(missing));
  test::SetReadOnly(world.Host(R"(C:\Media\Elm.bmp)"), true);
  test::SetReadOnly(world.Host(R"(C:\Golf\Trees.hlb)"), true);
  EXPECT_TRUE(Course(world.elmKey, {true, true, true}));
  EXPECT_EQ(Boxes(), (Texts{Sure("Old Elm"), Orphan("Grass"), Orphan("Trees"),
                            std::string("These files could not be deleted.\r\n\r\nC:\\Media\\Elm.bmp: ") +
                                "Path/File access error\r\nC:\\Golf\\Trees.hlb: Path/File access error",
                            "Old Elm\r\n\r\nCourse was successfully uninstalled."}));
  EXPECT_FALSE(Shows(world.grassKey));
  EXPECT_FALSE(Shows(world.treesKey));
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Media\Elm.bmp)")));
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Golf\Trees.hlb)")));
  EXPECT_FALSE(std::filesystem::exists(world.Host(R"(C:\Golf\Elm.mp3)")));
}

} // namespace turfdesk
