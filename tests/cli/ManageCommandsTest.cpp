// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/TurfctlTest.h"

namespace turfdesk {

namespace {

/// turfctl on a home with "Old Elm" and its libraries "Grass" and "Trees" installed.
class ManageCommandsTest : public TurfctlTest {
protected:
  ManageCommandsTest() {
    samples::WriteFile(Host("Golf/Old Elm.hlc"), samples::CourseBytes(elm));
    samples::WriteFile(Host("Golf/Grass.hlb"), samples::LibraryBytes(grass));
    samples::WriteFile(Host("Golf/Trees.hlb"), samples::LibraryBytes(trees));
    EXPECT_EQ(Run(R"(--yes install 'C:\Golf\Grass.hlb' 'C:\Golf\Trees.hlb' 'C:\Golf\Old Elm.hlc')").status, 0);
    std::filesystem::create_directories(Host("New"));
  }

  bool Exists(const std::string &name) const { return std::filesystem::exists(Host(name)); }
};

} // namespace

TEST_F(ManageCommandsTest, UninstallAsksAsTheButtonDoes) {
  EXPECT_EQ(Run("--no uninstall 'old elm'").status, 1);
  EXPECT_TRUE(Exists("Golf/Old Elm.hlc"));

  const Json answer = Run("--json --ask uninstall 'Old Elm'", "y\nn\ny\n").Answer();
  std::string answers;
  for (const Json &message : answer["messages"])
    answers += message["answer"].get<std::string>() + " ";
  EXPECT_EQ(answers, "yes no yes ok ");
  EXPECT_EQ(answer["result"], true);
  EXPECT_FALSE(Exists("Golf/Old Elm.hlc") || Exists("Golf/Trees.hlb"));
  EXPECT_TRUE(Exists("Golf/Grass.hlb"));
}

TEST_F(ManageCommandsTest, MoveTellsStepsAndVerdict) {
  const Outcome moved = Run("--json --yes move 'Old Elm' --to '" + HostText("New") + "'");
  ASSERT_EQ(moved.status, 0) << moved.output;
  const Json answer = moved.Answer();
  EXPECT_EQ(answer["verdict"], "Successfully moved \"Old Elm\"");
  ASSERT_EQ(answer["steps"].size(), 3U);
  EXPECT_EQ(answer["steps"][0], (Json{{"file", "Old Elm.hlc"}, {"route", R"("C:\Golf" to "C:\New")"}}));
  EXPECT_TRUE(Exists("New/Old Elm.hlc") && Exists("New/Grass.hlb") && Exists("New/Trees.hlb"));
  EXPECT_EQ(Run("--json show grass").Answer()["library"]["filename"], R"(C:\New\Grass.hlb)");

  const Outcome nowhere = Run(R"(move Grass --to 'C:\Nowhere')");
  EXPECT_EQ(nowhere.status, 1);
  EXPECT_EQ(nowhere.errors, "C:\\Nowhere\n\nPath not found\n");
}

TEST_F(ManageCommandsTest, CompressesWithoutWhatIsLeftOut) {
  const std::string compress = R"(compress 'OLD elm' --output 'C:\out.hlz' --without trees)";
  const Outcome refused = Run("--json --no " + compress);
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.Boxes(),
            Texts{"question [Required Libraries not Included] Libraries necessary for this course to run have not been "
                  "selected for compression.  If a person installing this course doesn't have these libraries he will "
                  "not be able to play the course.  Do you want to continue?"});
  EXPECT_FALSE(Exists("out.hlz"));
  const Outcome compressed = Run("--json --yes " + compress);
  EXPECT_EQ(compressed.Boxes(), refused.Boxes());
  EXPECT_EQ(compressed.Answer()["verdict"], "Course files have been successfully compressed.");
  const Json steps = compressed.Answer()["steps"];
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_EQ(steps[1]["file"], "Grass.hlb");
  EXPECT_TRUE(Exists("out.hlz"));
  EXPECT_EQ(Run("compress 'Old Elm' --without nothing").status, 1);
  EXPECT_EQ(Run("--json --no compress 'Old Elm'").Boxes(), Texts{}) << "nothing is left out";
}

TEST_F(ManageCommandsTest, TheLibraryOfACommonKeyIsChosenByAnOption) {
  const std::string key = samples::KeyOf(grass);
  ASSERT_EQ(Run(R"(tree set 'Software\KESTRAVON\Marrowfell 2002\Courses\)" + key + "' Name Twin").status, 0);
  EXPECT_EQ(Run("--yes uninstall --library '" + key + "'").status, 0);
  const Json lists = Run("--json list").Answer();
  EXPECT_EQ(lists["courses"].size(), 2U);
  EXPECT_EQ(lists["libraries"].size(), 1U);
  EXPECT_EQ(Run("--yes uninstall '" + key + "'").status, 0) << "without the option the course comes first";
  EXPECT_EQ(Run("--json list").Answer()["courses"].size(), 1U);
}

TEST_F(ManageCommandsTest, SetMediaWritesWhatIsGivenAndKeepsTheRest) {
  ASSERT_EQ(Run(R"(set-media 'Old Elm' --picture 'C:\a b.bmp' --text 'C:\t.txt')").status, 0);
  ASSERT_EQ(Run("set-media 'Old Elm' --text '' --music '" + HostText("m.mp3") + "'").status, 0);
  const Json course = Run("--json show 'Old Elm'").Answer()["course"];
  EXPECT_EQ(course["picture"], R"(C:\a b.bmp)");
  EXPECT_EQ(course["music"], R"(C:\m.mp3)");
  EXPECT_EQ(course["text"], "");
  EXPECT_EQ(Run("set-media 'Old Elm'").status, 0) << "nothing given, nothing changed";
  const Outcome unknown = Run(R"(set-media Grass --text 'C:\t.txt')");
  EXPECT_EQ(unknown.status, 1);
  EXPECT_EQ(unknown.errors, "No course has this key or name.\n\nGrass\n");
}

TEST_F(TurfctlTest, AnEmptyListIsToldAsTheButtonTellsIt) {
  EXPECT_EQ(Run("--yes uninstall Nothing").errors, "No courses installed.\n");
  EXPECT_EQ(Run("--yes move --library Nothing --to 'C:'").errors, "No libraries installed.\n");
}

TEST_F(ManageCommandsTest, ClearStatisticsDeletesTheGamesFile) {
  ASSERT_EQ(Run(R"(settings set InstallDir 'C:\Game')").status, 0);
  const std::string file = "Game/Courses/" + samples::KeyOf(elm) + ".sta";
  samples::WriteFile(Host(file), samples::ToBytes("rounds"));
  const Outcome cleared = Run("--yes clear-statistics 'Old Elm'");
  EXPECT_EQ(cleared.status, 0);
  EXPECT_NE(cleared.errors.find("Statistics have been cleared."), std::string::npos);
  EXPECT_FALSE(Exists(file));
}

TEST_F(TurfctlTest, LettersThatWindowsTellsApartMakeOtherFilesAndFolders) {
  const samples::CourseSpec first{.name = "First"};
  const samples::CourseSpec second{.name = "Second"};
  const std::pair<std::string, std::string> pairs[] = {
      {"Straße", "Strasse"}, {"oﬃce", "office"}, {"\u212A", "k"}, {"\u00E9", "e\u0301"}, {"ς", "σ"}};
  for (const auto &[one, other] : pairs) {
    const auto exists = [this](const std::string &name) { return std::filesystem::exists(Host(name)); };
    samples::WriteCourse(Host("In/" + one + ".hlc"), first);
    samples::WriteCourse(Host("To/" + other + ".hlc"), second);
    ASSERT_EQ(Run("--yes install 'C:\\In\\" + one + ".hlc'").status, 0);
    ASSERT_EQ(Run("--yes install 'C:\\To\\" + other + ".hlc'").status, 0);
    EXPECT_EQ(Run("--yes move First --to 'C:\\To'").status, 0);
    EXPECT_TRUE(exists("To/" + one + ".hlc") && exists("To/" + other + ".hlc")) << one;
    EXPECT_EQ(Run("--yes uninstall Second").status, 0);
    EXPECT_TRUE(exists("To/" + one + ".hlc") && !exists("To/" + other + ".hlc")) << one;
    EXPECT_EQ(Run("--yes uninstall First").status, 0);

    samples::WriteCourse(Host(one + "/Elm.hlc"), first);
    std::filesystem::create_directories(Host(other));
    std::string install = "--yes install 'C:\\" + one;
    install.append("\\Elm.hlc' --to 'C:\\").append(other).append("'");
    EXPECT_EQ(Run(install).status, 0);
    EXPECT_TRUE(exists(other + "/Elm.hlc")) << one;
    EXPECT_EQ(Run("--yes uninstall First").status, 0);

    samples::WritePackage(Host("in.hlz"), {{"Elm.hlc", samples::CourseBytes(elm)},
                                           {one + ".hlb", samples::LibraryBytes(grass)},
                                           {other + ".hlb", samples::LibraryBytes(trees)}});
    std::filesystem::create_directories(Host("Golf"));
    EXPECT_EQ(Run("--no install 'C:\\in.hlz' --to 'C:\\Golf'").status, 0) << one;
    EXPECT_TRUE(exists("Golf/" + one + ".hlb") && exists("Golf/" + other + ".hlb")) << one;
    EXPECT_EQ(Run("--yes uninstall 'Old Elm'").status, 0);
  }
}

TEST_F(TurfctlTest, NamesNeitherCommandTheTerminalNorForgeLines) {
  const samples::CourseSpec evil{.name = "Elm\x1B[2J\r\nyes\u009D"};
  const std::string file = "C:\\Elm\u202Eclh.hlc";
  const std::string name = "Elm\\x1B[2J\\x0D\\x0Ayes\\x9D";
  samples::WriteCourse(Host("Elm\u202Eclh.hlc"), evil);
  const Outcome installed = Run("install '" + file + "'");
  ASSERT_EQ(installed.status, 0) << installed.errors;
  EXPECT_TRUE(installed.output.starts_with("Elm\\u202Eclh.hlc: ")) << installed.output;
  const std::string key = samples::KeyOf(evil);
  EXPECT_EQ(Run("list --courses").output,
            "Courses (1)\n  " + name + "\n      " + key + "  4 KB\n      C:\\Elm\\u202Eclh.hlc\n");
  EXPECT_NE(Run("show " + key).output.find("\nname: " + name + "\n"), std::string::npos);
  const std::string question = Run("--ask uninstall " + key).errors;
  EXPECT_NE(question.find("\n\n" + name + "\nyes or no? no\n"), std::string::npos) << question;
  EXPECT_NE(Run("settings get '\x1B[2J'").errors.find("\n\\x1B[2J\n"), std::string::npos);

  const Json answer = Run("--json --no uninstall " + key).Answer();
  EXPECT_TRUE(answer["messages"][0]["text"].get<std::string>().ends_with("\r\n\r\nElm\x1B[2J\r\nyes\u009D"));
  EXPECT_EQ(Run("--json list").Answer()["courses"][0]["name"], "Elm\x1B[2J\r\nyes\u009D");

  const std::string entry = "'Software\\KESTRAVON\\Marrowfell 2002\\Courses\\a\nyes' ";
  ASSERT_EQ(Run("tree set " + entry + "Name Elm").status, 0);
  ASSERT_EQ(Run("tree set " + entry + "Filename 'C:\\b\nyes.hlc'").status, 0);
  EXPECT_EQ(Run("move Elm --to 'C:\\'").errors, "b\\x0Ayes.hlc: Bad file name or number\n");
  EXPECT_TRUE(Run("tree set '\\a\nyes' b c").errors.ends_with("\\a\\x0Ayes\n"));
  ASSERT_EQ(Run("tree set 'Software\\KESTRAVON\\Marrowfell 2002\\Courses\\b' Name Elm").status, 0);
  EXPECT_NE(Run("show Elm").errors.find("\na\\x0Ayes\nb\n"), std::string::npos);
}

} // namespace turfdesk
