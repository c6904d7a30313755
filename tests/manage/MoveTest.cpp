// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/Move.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "catalogue/LoadLists.h"
#include "platform/RuntimeError.h"
#include "support/basVorinRegistry.h"

#include "common/GolfWorld.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

constexpr const char *CannotBeDeleted = "The source file cannot be deleted.  If you are moving\r\n"
                                        "this file from a CD-ROM drive click OK to continue.  Otherwise,\r\n"
                                        "click OK to continue or Cancel to end this operation.";

std::string Orphan(const std::string &library) {
  return "This course uses the following library which is not being used by any other course.\r\n\r\n" + library +
         "\r\n\r\nDo you wish to move it?";
}

struct MoveWorld : public test::GolfWorld {
  bool Move(Row *row, std::int32_t list, const std::string &destination, const std::vector<bool> &answers = {}) {
    window.steps.clear();
    Answer(answers);
    state.activeList = list;
    window.progress.begins = 0;
    boxes.onShow = [this] { EXPECT_FALSE(window.progress.IsFull()) << "while there is something to ask or to tell"; };
    const bool moved = RunMove(state, {row, destination}, window);
    boxes.onShow = nullptr;
    EXPECT_EQ(window.progress.IsFull(), moved);
    EXPECT_EQ(window.progress.begins, 1);
    EXPECT_FALSE(window.progress.wentBack);
    EXPECT_EQ(window.file.caption, "");
    EXPECT_EQ(window.route.caption, moved ? "Successfully moved \"" + row->Text() + "\"" : "Move failed.");
    return moved;
  }
  bool MoveElm(const std::string &destination, const std::vector<bool> &answers = {}) {
    return Move(&Course(elmKey), ActiveCourses, destination, answers);
  }
  bool MoveGrass(const std::string &destination) { return Move(&Library(grassKey), ActiveLibraries, destination); }

  /// The folders in which row and catalogue say that Old Elm's five files are, and then those of Grass and Trees. Both
  /// must say the same.
  Texts Folders() {
    const Row &course = Course(elmKey);
    Texts shown;
    for (const int field : {column::Filename, column::Picture, column::Music, column::Video, column::Text})
      shown.push_back(course.SubItems(field));
    for (const std::string &key : {grassKey, treesKey})
      shown.push_back(Library(key).SubItems(column::Filename));
    EXPECT_EQ(shown, (Texts{GetCourseFilename(state, elmKey), GetCoursePicture(state, elmKey),
                            GetCourseMusic(state, elmKey), GetCourseVideo(state, elmKey), GetCourseText(state, elmKey),
                            GetLibraryFilename(state, grassKey), GetLibraryFilename(state, treesKey)}));
    Texts folders;
    for (const std::string &path : shown)
      folders.push_back(state.fileService->GetFilePart(state.fileService->GetPathPart(path)));
    return folders;
  }
  bool Has(const std::string &path) const { return std::filesystem::exists(Host(path)); }
};

class MoveTest : public testing::Test {
protected:
  Texts Boxes() { return world.boxes.TakeTexts(); }

  MoveWorld world;
  const std::map<std::string, std::string> filesBefore = test::FilesOnDrive(world.Home());
};

const Texts AllAtHome = {"Golf", "Media", "Golf", "Golf", "Golf", "Golf", "Golf"};

} // namespace

TEST_F(MoveTest, MovesInItsOrderWhateverIsAnsweredForTwoOrphans) {
  for (const bool grassGoes : {false, true})
    for (const bool treesGo : {false, true}) {
      MoveWorld fresh;
      EXPECT_TRUE(fresh.MoveElm(R"(C:\Other)", {grassGoes, treesGo}));
      EXPECT_EQ(fresh.boxes.TakeTexts(), (Texts{Orphan("Grass"), Orphan("Trees")}));
      const char *grassFolder = grassGoes ? "Other" : "Golf";
      const char *treesFolder = treesGo ? "Other" : "Golf";
      EXPECT_EQ(fresh.Folders(), (Texts{"Other", "Other", "Other", "Other", "Other", grassFolder, treesFolder}));

      Texts moved = {R"(C:\Golf\Elm.hlc)", R"(C:\Media\Elm.bmp)", R"(C:\Golf\Elm.mp3)", R"(C:\Golf\Elm.avi)",
                     R"(C:\Golf\Elm.txt)"};
      if (grassGoes)
        moved.push_back(R"(C:\Golf\Grass.hlb)");
      if (treesGo)
        moved.push_back(R"(C:\Golf\Trees.hlb)");
      EXPECT_EQ(fresh.TakeDeleted(), moved);
      Texts steps;
      for (const std::string &path : moved) {
        const std::string name = fresh.state.fileService->GetFilePart(path);
        steps.push_back(name + "|\"" + fresh.state.fileService->GetPathPart(path) + R"(" to "C:\Other")");
      }
      EXPECT_EQ(fresh.window.steps, steps);
    }
}

TEST_F(MoveTest, AFileMovesOverOneOfItsNameWithoutAQuestion) {
  EXPECT_TRUE(world.MoveGrass("C:\\Taken\\"));
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(GetLibraryFilename(world.state, world.grassKey), R"(C:\Taken\Grass.hlb)");
  EXPECT_EQ(test::FilesBelow(world.Host(R"(C:\Taken)")).at("Grass.hlb"), filesBefore.at("Golf/Grass.hlb"));
}

TEST_F(MoveTest, CoursesOfTheGameItselfStayAndLibrariesWithTheirKeysDoNot) {
  for (const std::string key : {"{E6094587-8112-4EA0-8179-95FFEFAD9999}", "{E6094587-8112-4EA0-8179-95ffefad9999}"}) {
    MoveWorld fresh;
    const bool moves = key.find('f') != std::string::npos;
    Row &course = fresh.Course(fresh.elmKey);
    course.SetTag(key);
    RegisterCourse(fresh.state, key, "Fixed", course.SubItems(column::Filename));
    RegisterLibrary(fresh.state, key, "Grass", fresh.Library(fresh.grassKey).SubItems(column::Filename));
    for (const int field : {column::Picture, column::Music, column::Video, column::Text})
      course.SetSubItems(field, "");
    EXPECT_EQ(fresh.Move(&course, ActiveCourses, R"(C:\Other)"), moves);
    EXPECT_EQ(fresh.Has(R"(C:\Golf\Elm.hlc)"), !moves);
    EXPECT_EQ(fresh.boxes.shown.front().text == "This file cannot be moved from current location.", !moves);
    Row &library = fresh.Library(fresh.grassKey);
    library.SetTag(key);
    EXPECT_TRUE(fresh.Move(&library, ActiveLibraries, R"(C:\Other)"));
  }
}

TEST_F(MoveTest, NothingIsDeletedWhereSourceAndDestinationAreOneFileHoweverNamed) {
  Texts destinations = {R"(C:\Golf)", R"(c:\GOLF\)", R"(C:\Other\..\Golf)", R"(C:\Hard)"};
  std::filesystem::create_directory(world.Host(R"(C:\Hard)"));
  std::filesystem::create_hard_link(world.Host(R"(C:\Golf\Elm.hlc)"), world.Host(R"(C:\Hard\Elm.hlc)"));
  std::ranges::copy(test::MakeAliases(world.Home(), R"(C:\Golf)"), std::back_inserter(destinations));
  for (const std::string &destination : destinations) {
    SCOPED_TRACE(destination);
    EXPECT_FALSE(world.MoveElm(destination, {true, true}));
    EXPECT_EQ(Boxes(), Texts{"Permission denied"});
    EXPECT_EQ(test::FilesBelow(world.Host(R"(C:\Golf)")).at("Elm.hlc"), filesBefore.at("Golf/Elm.hlc"));
    EXPECT_EQ(world.Folders(), AllAtHome);
  }
  EXPECT_EQ(world.TakeDeleted(), Texts{});
}

TEST_F(MoveTest, AReadOnlySourceIsTheUsersDecision) {
  for (const bool goesOn : {false, true}) {
    MoveWorld fresh;
    test::SetReadOnly(fresh.Host(R"(C:\Media\Elm.bmp)"), true);
    EXPECT_EQ(fresh.MoveElm(R"(C:\Other)", {goesOn, true, false}), goesOn);
    EXPECT_EQ(fresh.boxes.shown.front().buttons, BoxButtons::OkCancel);
    EXPECT_EQ(fresh.boxes.TakeTexts(), goesOn ? (Texts{CannotBeDeleted, Orphan("Grass"), Orphan("Trees")})
                                              : (Texts{CannotBeDeleted, "Path/File access error"}));
    EXPECT_TRUE(fresh.Has(R"(C:\Media\Elm.bmp)") && fresh.Has(R"(C:\Other\Elm.bmp)"));
    EXPECT_EQ(fresh.Folders(), goesOn ? (Texts{"Other", "Other", "Other", "Other", "Other", "Other", "Golf"})
                                      : (Texts{"Other", "Media", "Golf", "Golf", "Golf", "Golf", "Golf"}));
  }
}

TEST_F(MoveTest, AnOrphanThatCannotBeMovedDoesNotKeepTheOthers) {
  std::filesystem::remove(world.Host(R"(C:\Golf\Grass.hlb)"));
  EXPECT_FALSE(world.MoveElm(R"(C:\Other)", {true, true}));
  EXPECT_EQ(Boxes(), (Texts{Orphan("Grass"), "File not found", Orphan("Trees")}));
  EXPECT_EQ(world.Folders(), (Texts{"Other", "Other", "Other", "Other", "Other", "Golf", "Other"}));
}

TEST_F(MoveTest, WhichLibrariesAreOffered) {
  world.state.lstLibraries.RemoveByKey(world.grassKey);
  world.registry.DeleteKey(LibraryEntryKey(world.treesKey));
  EXPECT_FALSE(world.MoveElm(R"(C:\Other)", {true}));
  EXPECT_EQ(Boxes(), Texts{Orphan("Grass")}) << "it has no row, Trees no key, and Oak uses Water";
  EXPECT_TRUE(world.Has(R"(C:\Golf\Grass.hlb)") && world.Has(R"(C:\Golf\Trees.hlb)"));
  EXPECT_TRUE(world.Has(R"(C:\Golf\Water.hlb)"));
}

TEST_F(MoveTest, WhatHasNoFileMovesWithoutOne) {
  world.Course(world.elmKey).SetSubItems(column::Filename, "");
  world.Course(world.elmKey).SetSubItems(column::Music, "");
  EXPECT_TRUE(world.MoveElm(R"(C:\Other)"));
  EXPECT_EQ(world.TakeDeleted(), (Texts{R"(C:\Media\Elm.bmp)", R"(C:\Golf\Elm.avi)", R"(C:\Golf\Elm.txt)"}));
  EXPECT_EQ(world.Course(world.elmKey).SubItems(column::Filename), "");
  world.Library(world.grassKey).SetSubItems(column::Filename, "");
  EXPECT_TRUE(world.MoveGrass(R"(C:\Other)"));
  EXPECT_EQ(world.TakeDeleted(), Texts{});
  world.Library(world.grassKey).SetSubItems(column::Filename, R"(C:\Golf\gone.hlb)");
  EXPECT_FALSE(world.MoveGrass(R"(C:\Other)")) << "and nothing has been done";
}

TEST_F(MoveTest, AFileGoesBackWhereTheTreeBreaksDown) {
  world.registry.failingValue = "Filename";
  world.registry.onFailure = [] { throw RuntimeError(ErrorNumber::DeviceIo, "The settings are gone."); };
  EXPECT_FALSE(world.MoveGrass(R"(C:\Other)"));
  EXPECT_EQ(Boxes(), Texts{"The settings are gone."});
  EXPECT_EQ(test::FilesOnDrive(world.Home()), filesBefore);
}

TEST_F(MoveTest, TwoFilesOfOneNameDoNotReplaceEachOther) {
  const std::string text = R"(C:\Notes\elm.BMP)";
  samples::WriteFile(world.Host(text), samples::ToBytes("notes that exist nowhere else"));
  world.Course(world.elmKey).SetSubItems(column::Text, text);
  SetRegistryValue(world.state, LocalMachine, CourseEntryKey(world.elmKey), "Text", text);
  EXPECT_FALSE(world.MoveElm(R"(C:\Other)"));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{text + "\r\n\r\nAnother file of this name has just been moved there."});
  EXPECT_TRUE(std::filesystem::exists(world.Host(text)));
}

TEST_F(MoveTest, WhatCannotBeDeletedMovesAndWhatCannotBeRecordedStays) {
  SetRegistryValue(world.state, LocalMachine, CourseEntryKey(world.elmKey) + "\\Rounds", "Last", "of another program");
  EXPECT_TRUE(world.MoveElm(R"(C:\Taken)"));
  EXPECT_EQ(world.Folders(), (Texts{"Taken", "Taken", "Taken", "Taken", "Taken", "Golf", "Golf"}));
  Boxes();

  const auto before = test::FilesOnDrive(world.Home());
  world.registry.DeleteKey(LibraryEntryKey(world.grassKey));
  EXPECT_FALSE(world.MoveGrass(R"(C:\Taken)"));
  const Texts boxes = Boxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_TRUE(boxes.front().starts_with("There is no such settings key")) << boxes.front();
  EXPECT_EQ(test::FilesOnDrive(world.Home()), before);
  EXPECT_FALSE(LibraryKeyExists(world.state, world.grassKey)) << "it is not made anew";
}

TEST_F(MoveTest, WhatAReplacedFileWasComesBackWhereTheNewPlaceIsNotRecorded) {
  world.registry.failingValue = "Picture";
  EXPECT_FALSE(world.MoveElm(R"(C:\Taken)"));
  EXPECT_EQ(world.Folders(), (Texts{"Taken", "Media", "Golf", "Golf", "Golf", "Golf", "Golf"}));
  auto expected = filesBefore;
  expected["Taken/Elm.hlc"] = expected["Golf/Elm.hlc"];
  expected.erase("Golf/Elm.hlc");
  EXPECT_EQ(test::FilesOnDrive(world.Home()), expected);
}

TEST_F(MoveTest, WhatAnotherProgramHasChangedStopsIt) {
  test::TestProgram other(world.Home());
  const auto installNeedOfGrass = [&] {
    samples::WriteCourse(world.Host(R"(C:\Golf\Need.hlc)"), {.name = "Need", .libraries = {world.grass}});
    RegisterCourse(other.state, "{N}", "Need", R"(C:\Golf\Need.hlc)");
  };
  const std::string changed = "The catalogue was changed by another program.\r\n\r\n";
  world.boxes.decide = [&](const MessageBox &) {
    installNeedOfGrass();
    return true;
  };
  EXPECT_FALSE(world.MoveElm(R"(C:\Other)"));
  EXPECT_EQ(Boxes(), (Texts{Orphan("Grass"), changed + "The course has been moved. Its libraries that were still to be "
                                                       "moved stay."}));
  EXPECT_EQ(world.Folders(), (Texts{"Other", "Other", "Other", "Other", "Other", "Golf", "Golf"}));
  EXPECT_FALSE(world.MoveGrass(R"(C:\Other)"));
  EXPECT_EQ(Boxes(), Texts{changed + "Nothing has been moved."});

  LoadLists(world.state);
  RegisterLibrary(world.state, world.grassKey, "Grass", R"(C:\Golf\Grass.hlb)");
  SetRegistryValue(other.state, LocalMachine, LibraryEntryKey(world.waterKey), "Filename", R"(C:\Golf\Water.hlb)");
  EXPECT_TRUE(world.MoveGrass(R"(C:\Other)")) << "our own changes and those that change nothing do not count";
}

} // namespace turfdesk
