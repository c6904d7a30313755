// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "install/RunInstall.h"
#include "support/basVorinFile.h"

#include "common/TestWorld.h"
#include "samples/GameFiles.h"
#include "samples/Packages.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

class InstallPackageTest : public testing::Test {
protected:
  InstallPackageTest() { world.MakeFolder(R"(C:\Golf)"); }

  static samples::PackageEntry Course(const samples::CourseSpec &spec) {
    return {spec.name + ".hlc", samples::CourseBytes(spec)};
  }
  static samples::PackageEntry Library(const samples::LibrarySpec &spec) {
    return {spec.name + ".hlb", samples::LibraryBytes(spec)};
  }
  static samples::PackageEntry Other(const std::string &name) { return {name, samples::ToBytes("content of " + name)}; }

  bool Install(const std::vector<samples::PackageEntry> &entries, const std::vector<bool> &answers = {}) {
    samples::WritePackage(world.Host(R"(C:\Downloads\p.hlz)"), entries);
    world.boxes.answers = {answers.begin(), answers.end()};
    world.window.progress.begins = 0;
    const bool installed = RunInstall(state, {R"(C:\Downloads)", R"(C:\Golf)", {"p.hlz"}}, world.window);
    EXPECT_EQ(world.window.progress.IsFull(), installed);
    EXPECT_EQ(world.window.progress.begins, 1);
    EXPECT_FALSE(world.window.progress.wentBack);
    return installed;
  }

  /// Sorted without regard to case.
  Texts FilesIn(const std::string &folder) { return world.platform->Folders().Files(folder, "*"); }

  test::TestWorld world;
  SharedState &state = world.state;
  const std::string temp = state.fileService->GetTempFolder();
  const samples::LibrarySpec grass{.name = "Grass"};
  const samples::LibrarySpec trees{.name = "Trees"};
  const samples::LibrarySpec water{.name = "Water"};
  const samples::CourseSpec course{.name = "Harbour", .libraries = {grass, trees, water}};
};

} // namespace

TEST_F(InstallPackageTest, EverythingGoesInWithLibrariesFirst) {
  EXPECT_TRUE(Install({Course(course), Other("sub/two.bmp"), Library(grass), Other("two.bmp"), Library(trees),
                       Other("Tune.mp3"), Library(water), Other("notes.TXT"), Other("readme.doc"), Other("README.DOC"),
                       Other("../x.doc"), Other("aux.bmp"), Other("12:30 shot.txt"), Other("__MACOSX/._two.bmp")}));
  EXPECT_TRUE(world.boxes.shown.empty()) << world.boxes.shown.front().text;
  const Row *row = state.lstCourses.FindKey(samples::KeyOf(course));
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->SubItems(column::Picture), R"(C:\Golf\two.bmp)") << "the last one listed counts";
  EXPECT_EQ(row->SubItems(column::Music), R"(C:\Golf\Tune.mp3)");
  EXPECT_EQ(GetCourseText(state, row->Tag()), R"(C:\Golf\notes.TXT)");
  EXPECT_EQ(state.lstLibraries.Count(), 3U);
  EXPECT_EQ(FilesIn(R"(C:\Golf)"),
            (Texts{"Grass.hlb", "Harbour.hlc", "notes.TXT", "Trees.hlb", "Tune.mp3", "two.bmp", "Water.hlb"}));
  EXPECT_EQ(FilesIn(temp), Texts{});
  EXPECT_FALSE(DirExists(state, temp + R"(\sub)")) << "only the file that counts is extracted";
  EXPECT_EQ(world.window.steps.front(), R"(Harbour.hlc|"C:\Downloads\p.hlz" to ")" + temp + "\"");
  EXPECT_EQ(world.window.steps.back(), R"(notes.TXT|")" + temp + R"(" to "C:\Golf")");
}

TEST_F(InstallPackageTest, AFolderInsideThePackageIsFollowed) {
  samples::PackageEntry inFolder = Course({.name = "Bare"});
  inFolder.name = "sub/" + inFolder.name;
  EXPECT_TRUE(Install({inFolder, Other("sub/pic.bmp")}));
  EXPECT_TRUE(FileExists(state, R"(C:\Golf\Bare.hlc)"));
  EXPECT_TRUE(FileExists(state, R"(C:\Golf\pic.bmp)"));
}

TEST_F(InstallPackageTest, PackagesThatAreRefusedExtractNothing) {
  const std::pair<std::vector<samples::PackageEntry>, const char *> cases[] = {
      {{Library(grass), Other("a.bmp")}, "Compressed file does not contain a course file."},
      {{Course(course), Course({.name = "Other"})}, "Compressed file contains more than one course file."},
      {{Other("12:30 shot.jpg")}, "Compressed file does not contain a course file."},
      {{Course({.name = "../Up"})}, "Error 350:  Parent dir."},
      {{Course(course), Course({.name = "../Up"})}, "Error 350:  Parent dir."},
      {{Course(course), Library(grass), Library({.name = "GRASS"})}, "Error 370:  Name repeat."},
  };
  for (const auto &[entries, message] : cases) {
    EXPECT_FALSE(Install(entries));
    EXPECT_EQ(world.boxes.TakeTexts(), Texts{message});
    EXPECT_EQ(world.window.steps.back(), "p.hlz|") << "what the message is about";
  }
  samples::WriteFile(world.Host(R"(C:\Downloads\p.hlz)"), samples::ToBytes("this is no zip archive at all"));
  EXPECT_FALSE(RunInstall(state, {R"(C:\Downloads)", R"(C:\Golf)", {"p.hlz"}}, world.window));
  EXPECT_EQ(world.boxes.TakeTexts().front().substr(0, 6), "Error ");
  EXPECT_EQ(FilesIn(temp), Texts{});
  EXPECT_TRUE(FilesIn(R"(C:\Golf)").empty());
}

TEST_F(InstallPackageTest, AFailingLibraryEndsTheInstallAndMediaStayBehind) {
  samples::PackageEntry broken = Library(trees);
  broken.content.resize(30);
  EXPECT_FALSE(Install({Library(grass), broken, Library(water), Course(course), Other("a.bmp")}));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Input past end of file"});
  EXPECT_EQ(world.window.steps.back(), "Trees.hlb|") << "what the message is about";
  EXPECT_TRUE(LibraryKeyExists(state, samples::KeyOf(grass))) << "what was installed before stays";
  EXPECT_FALSE(LibraryKeyExists(state, samples::KeyOf(water)));
  EXPECT_FALSE(CourseKeyExists(state, samples::KeyOf(course)));
  EXPECT_EQ(FilesIn(temp), Texts{"a.bmp"});
}

TEST_F(InstallPackageTest, DecliningToReplaceIsNoFailureAndLeavesTheMediaAlone) {
  const std::vector<samples::PackageEntry> entries = {Course({.name = "Bare"}), Other("a.bmp")};
  ASSERT_TRUE(Install(entries));
  std::filesystem::remove(world.Host(R"(C:\Golf\a.bmp)"));
  EXPECT_TRUE(Install(entries, {false}));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Course already exists. Do you wish to replace?\r\n\r\nC:\\Golf\\Bare.hlc"});
  EXPECT_FALSE(FileExists(state, R"(C:\Golf\a.bmp)"));
  EXPECT_EQ(FilesIn(temp), Texts{"a.bmp"});
  EXPECT_TRUE(Install(entries, {true})) << "a file left in the temporary folder does not stand in the way";
  EXPECT_TRUE(FileExists(state, R"(C:\Golf\a.bmp)"));
}

} // namespace turfdesk
