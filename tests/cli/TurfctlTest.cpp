// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/TurfctlTest.h"

#include <algorithm>

namespace turfdesk {

TEST_F(TurfctlTest, InstallsAPackageAndListsIt) {
  samples::WritePackage(Host("in/elm.hlz"), {{"Old Elm.hlc", samples::CourseBytes(elm)},
                                             {"Grass.hlb", samples::LibraryBytes(grass)},
                                             {"Elm.txt", samples::ToBytes("notes")}});
  std::filesystem::create_directories(Host("Golf"));
  const Outcome installed = Run("--json --yes install '" + HostText("in/elm.hlz") + R"(' --to 'C:\Golf')");
  ASSERT_EQ(installed.status, 0) << installed.output << installed.errors;
  const Json answer = installed.Answer();
  EXPECT_EQ(answer["result"], true);
  EXPECT_EQ(answer["verdict"], "Install completed successfully.");
  EXPECT_EQ(answer["messages"][0]["answer"], "yes");
  EXPECT_EQ(installed.Boxes(), Texts{"question [Turf Desk] The following required libraries were not "
                                     "found.\r\n\r\nTrees\r\n\r\n\r\nDo you wish to continue?"});
  ASSERT_EQ(answer["steps"].size(), 7U);
  EXPECT_EQ(answer["steps"][0]["file"], "Old Elm.hlc");
  EXPECT_EQ(answer["steps"][4], (Json{{"file", "Old Elm.hlc"}, {"route", ""}})) << "what the question is about";
  EXPECT_EQ(answer["steps"][6]["file"], "Elm.txt");

  const Json lists = Run("--json list").Answer();
  EXPECT_EQ(lists["courses"], Json::array({{{"key", samples::KeyOf(elm)},
                                            {"name", "Old Elm"},
                                            {"filename", R"(C:\Golf\Old Elm.hlc)"},
                                            {"size", 4096},
                                            {"libraries", {samples::KeyOf(grass), samples::KeyOf(trees)}},
                                            {"picture", ""},
                                            {"music", ""},
                                            {"video", ""},
                                            {"text", R"(C:\Golf\Elm.txt)"}}}));
  EXPECT_EQ(lists["libraries"].size(), 1U);
  EXPECT_FALSE(Run("--json list --libraries").Answer().contains("courses"));
  EXPECT_EQ(Run("--json show grass").Answer()["library"]["courses"], Json::array({"Old Elm"}));
}

TEST_F(TurfctlTest, AnswersComeFromWhereTheUserSays) {
  samples::WriteCourse(Host("elm.hlc"), elm);
  const std::string install = "install '" + HostText("elm.hlc") + "'";
  const std::tuple<std::string, const char *, int, std::size_t> cases[] = {{"--no ", "y\ny\n", 1, 1},
                                                                           {"", "y\ny\n", 1, 1},
                                                                           {"--ask ", "y\nno\n", 1, 2},
                                                                           {"--ask ", "yes\n", 1, 2},
                                                                           {"--ask ", "Y\r\nOK\n", 0, 2}};
  for (const auto &[option, input, status, questions] : cases) {
    std::string arguments = "--json ";
    arguments.append(option).append(install);
    const Outcome outcome = Run(arguments, input);
    EXPECT_EQ(outcome.status, status) << option << input;
    EXPECT_EQ(outcome.Boxes().size(), questions) << outcome.output;
  }
  const Outcome plain = Run("--yes " + install);
  EXPECT_EQ(plain.status, 0);
  EXPECT_NE(plain.errors.find("Do you wish to replace?"), std::string::npos);
  EXPECT_NE(plain.output.find("Install completed successfully."), std::string::npos);
  const std::string atTheEnd = Run("--ask " + install).errors;
  EXPECT_TRUE(atTheEnd.ends_with("\nyes or no? no\n")) << atTheEnd;
}

TEST_F(TurfctlTest, InstallsFolderByFolderInTheOrderGiven) {
  samples::WriteCourse(Host("a/Elm.hlc"), {.name = "Elm"});
  samples::WriteLibrary(Host("a/B.hlb"), grass);
  samples::WriteLibrary(Host("b/T.hlb"), trees);
  const Json answer = Run(R"(--json install 'C:\b\T.hlb' 'C:\a\Elm.hlc' 'c:\A\B.hlb')").Answer();
  std::string order;
  for (const Json &step : answer["steps"])
    order += step["file"].get<std::string>() + " ";
  EXPECT_EQ(order, "T.hlb Elm.hlc B.hlb ");
  // The question lets the window repaint before the second run has anything to show.
  const Json again = Run(R"(--json --yes install 'C:\b\T.hlb' 'C:\a\Elm.hlc')").Answer();
  EXPECT_EQ(again["messages"].size(), 2U) << again;
  for (const Json &step : again["steps"])
    EXPECT_NE(step["route"], "Install completed successfully.") << "the verdict of the run before";
  samples::WriteFile(Host("a/short.hlb"), samples::ToBytes("x"));
  EXPECT_EQ(Run(R"(install 'C:\a\short.hlb')").errors, "short.hlb: Input past end of file\n");
}

TEST_F(TurfctlTest, AFolderIsOneByAllItsNames) {
  const std::string file = R"(C:\Dl\Grass.hlb)";
  samples::WriteLibrary(Host("Dl/Grass.hlb"), grass);
  std::filesystem::create_directories(Host("Dl/sub"));
  ASSERT_EQ(Run("list").status, 0) << "the first start makes the drives";
  Texts names = {R"(C:\Dl\)", "C:/Dl", R"(C:\Dl\sub\..)", R"(c:\\DL\.)", HostText("Dl/"), HostText("Dl/sub/..")};
  // A link and a second drive, where the system has such; not the folder of links.
  Texts aliases = test::MakeAliases(home.Path(), R"(C:\Dl)");
  aliases.resize(std::min<std::size_t>(aliases.size(), 2));
  names.insert(names.end(), aliases.begin(), aliases.end());
  for (const std::string &name : names) {
    std::string install = "--json install '" + file;
    const Outcome installed = Run(install.append("' --to '").append(name).append("'"));
    ASSERT_EQ(installed.status, 0) << name << installed.output;
    EXPECT_EQ(installed.Answer()["steps"][0]["route"], R"("C:\Dl" to "")") << name;
    EXPECT_EQ(Run("--json show Grass").Answer()["library"]["filename"], file) << name;
    const Outcome moved = Run("--json move Grass --to '" + name + "'");
    EXPECT_EQ(moved.Boxes(), Texts{"error [Turf Desk] Permission denied"}) << name;
    EXPECT_EQ(samples::ReadFile(Host("Dl/Grass.hlb")), samples::LibraryBytes(grass)) << name;
    EXPECT_EQ(Run(R"(tree delete 'Software\KESTRAVON\Marrowfell 2002\Libraries\)" + samples::KeyOf(grass) + "'").status,
              0);
  }
}

TEST_F(TurfctlTest, APathGoesInCleanAndOneThatIsNotIsUnderstood) {
  const std::string entry = R"(tree set 'Software\KESTRAVON\Marrowfell 2002\Courses\)" + samples::KeyOf(elm) + "' ";
  samples::WriteCourse(Host("Dl/Elm.hlc"), elm);
  samples::WriteFile(Host("pics/a.bmp"), samples::ToBytes("picture"));
  std::filesystem::create_directories(Host("New"));
  ASSERT_EQ(Run("--yes install C:/Dl//x/../Elm.hlc").status, 0);
  ASSERT_EQ(Run("set-media 'Old Elm' --picture C:/pics//a.bmp").status, 0);
  const Json course = Run("--json show 'Old Elm'").Answer()["course"];
  EXPECT_EQ(course["filename"], R"(C:\Dl\Elm.hlc)");
  EXPECT_EQ(course["picture"], R"(C:\pics\a.bmp)");
  // As an earlier version, or another program, has written them.
  for (const char *value : {R"(Filename '\\?\C:\Dl/Elm.hlc')", R"(Picture C:\Dl\..\/pics/a.bmp)"})
    ASSERT_EQ(Run(entry + value).status, 0);
  ASSERT_EQ(Run("--yes compress 'Old Elm' --output C:/Dl/../p.hlz").status, 0);
  ASSERT_EQ(Run("--yes install C:/p.hlz --to C:/New/").status, 0);
  EXPECT_EQ(Run("--json show 'Old Elm'").Answer()["course"]["picture"], R"(C:\New\a.bmp)");
  EXPECT_TRUE(std::filesystem::exists(Host("New/a.bmp")));
}

TEST_F(TurfctlTest, SettingsAndTree) {
  EXPECT_EQ(Run("settings get target").output, "C:\\KESTRAVON\n");
  EXPECT_EQ(Run(R"(settings set Target 'D:\x')").status, 0);
  EXPECT_EQ(Run("--json settings list").Answer()["settings"]["Target"], R"(D:\x)");
  EXPECT_EQ(Run("settings get Nothing").status, 1);
  const std::string key = R"('Software\Turf Desk Tests')";
  const std::string subkey = R"('Software\Turf Desk Tests\Sub')";
  EXPECT_EQ(Run("tree set " + key + " '' 'the default'").status, 0);
  EXPECT_EQ(Run("tree set " + subkey + " name ''").status, 0);
  EXPECT_EQ(Run("tree get " + key + " ''").output, "the default\n");
  EXPECT_EQ(Run("tree keys " + key).output, "Sub\n");
  EXPECT_EQ(Run("tree delete " + key).status, 1) << "it has a subkey";
  EXPECT_EQ(Run("tree delete " + subkey).status, 0);
  EXPECT_EQ(Run("tree delete " + key).status, 0);
  EXPECT_EQ(Run("tree keys " + key).status, 1);
}

TEST_F(TurfctlTest, AWrongCommandLineIsToldInTheFormAskedFor) {
  const std::pair<std::string, std::string> cases[] = {
      {"settings set InstallDir -x", "There is no option -x. A text that begins with a dash is put behind --."},
      {"list --frob", "There is no option --frob. A text that begins with a dash is put behind --."},
      {"settings get", "name is required"},
      {"install ''", "files: The path is empty."},
      {"move Elm --to ''", "--to: The path is empty."},
      {"install x.hlc --to ''", "--to: The path is empty."},
      {"compress Elm --output ''", "--output: The path is empty."},
  };
  for (const auto &[arguments, words] : cases) {
    EXPECT_EQ(Run(arguments).errors, words + "\nRun with --help for more information.\n");
    const Outcome json = Run(arguments + " --json");
    EXPECT_EQ(json.status, 2) << arguments;
    EXPECT_EQ(json.Boxes(), Texts{"error [Turf Desk] " + words});
    EXPECT_EQ(json.Answer()["result"], false);
  }
  ASSERT_EQ(Run("settings set InstallDir -- -x").status, 0);
  EXPECT_EQ(Run("settings get InstallDir").output, "-x\n");
}

TEST_F(TurfctlTest, ExitStatusesTellUsageAndFailuresApart) {
  const Outcome help = Run("--json --help");
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(help.output.starts_with("Looks after"));
  for (const char *wrong : {"", "dance", "--yes --no list", "install", "tree get x"})
    EXPECT_EQ(Run(wrong).status, 2) << wrong;
  for (const char *failing : {R"(install 'C:\none.hlc')", R"(install 'C:\notes.txt')", "show nothing"}) {
    const Outcome outcome = Run(std::string("--json ") + failing);
    EXPECT_EQ(outcome.status, 1) << failing;
    EXPECT_EQ(outcome.Boxes().size(), 1U) << failing;
  }
}

} // namespace turfdesk
