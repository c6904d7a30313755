// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/TurfctlTest.h"

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
  EXPECT_EQ(
      answer["messages"],
      Json::array({{{"kind", "question"},
                    {"title", "Turf Desk"},
                    {"text", "The following required libraries were not found.\r\n\r\nTrees\r\n\r\n\r\nDo you wish "
                             "to continue?"},
                    {"answer", "yes"}}}));
  ASSERT_EQ(answer["steps"].size(), 6U);
  EXPECT_EQ(answer["steps"][0]["file"], "Old Elm.hlc");
  EXPECT_EQ(answer["steps"][5]["file"], "Elm.txt");

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
  struct Case {
    const char *option;
    const char *input;
    int status;
    int questions;
  };
  const Case cases[] = {{"--no", "y\ny\n", 1, 1},
                        {"", "y\ny\n", 1, 1},
                        {"--ask", "y\nno\n", 1, 2},
                        {"--ask", "yes\n", 1, 2},
                        {"--ask", "Y\r\nOK\n", 0, 2}};
  for (const Case &c : cases) {
    const Outcome outcome = Run(std::string("--json ") + c.option + " " + install, c.input);
    EXPECT_EQ(outcome.status, c.status) << c.option << c.input;
    EXPECT_EQ(outcome.Answer()["messages"].size(), static_cast<std::size_t>(c.questions)) << outcome.output;
  }
  const Outcome plain = Run("--yes " + install);
  EXPECT_EQ(plain.status, 0);
  EXPECT_NE(plain.errors.find("Do you wish to replace?"), std::string::npos);
  EXPECT_NE(plain.output.find("Install completed successfully."), std::string::npos);
  const std::string atTheEnd = Run("--ask " + install).errors;
  EXPECT_TRUE(atTheEnd.ends_with("\nyes or no? no\n")) << atTheEnd;
}

TEST_F(TurfctlTest, InstallsFolderByFolderInTheOrderOfTheFileLists) {
  samples::WriteCourse(Host("a/Elm.hlc"), {.name = "Elm"});
  samples::WriteLibrary(Host("a/B.hlb"), grass);
  samples::WriteLibrary(Host("b/T.hlb"), trees);
  const Json answer = Run(R"(--json install 'C:\b\T.hlb' 'C:\a\Elm.hlc' 'c:\A\B.hlb')").Answer();
  std::string order;
  for (const Json &step : answer["steps"])
    order += step["file"].get<std::string>() + " ";
  EXPECT_EQ(order, "T.hlb B.hlb Elm.hlc ");
  // The question lets the window repaint before the second run has anything to show.
  const Json again = Run(R"(--json --yes install 'C:\b\T.hlb' 'C:\a\Elm.hlc')").Answer();
  EXPECT_EQ(again["messages"].size(), 2U) << again;
  for (const Json &step : again["steps"])
    EXPECT_NE(step["route"], "Install completed successfully.") << "the verdict of the run before";
}

TEST_F(TurfctlTest, CompressesWithoutWhatIsLeftOut) {
  samples::WriteCourse(Host("elm.hlc"), elm);
  samples::WriteLibrary(Host("g.hlb"), grass);
  samples::WriteLibrary(Host("t.hlb"), trees);
  ASSERT_EQ(Run(R"(install 'C:\g.hlb' 'C:\t.hlb' 'C:\elm.hlc')").status, 1) << "elm comes first in the file list";
  ASSERT_EQ(Run(R"(--yes install 'C:\g.hlb' 'C:\t.hlb' 'C:\elm.hlc')").status, 0);
  const std::string compress = R"(compress 'OLD elm' --output 'C:\out.hlz' --without trees)";
  const Outcome refused = Run("--json --no " + compress);
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.Answer()["messages"],
            Json::array({{{"kind", "question"},
                          {"title", "Required Libraries not Included"},
                          {"text", "Libraries necessary for this course to run have not been selected for compression. "
                                   " If a person installing this course doesn't have these libraries he will not be "
                                   "able to play the course.  Do you want to continue?"},
                          {"answer", "no"}}}));
  EXPECT_EQ(refused.Answer()["verdict"], "");
  EXPECT_FALSE(std::filesystem::exists(Host("out.hlz")));
  const Json answer = Run("--json --yes " + compress).Answer();
  EXPECT_EQ(answer["messages"].size(), 1U);
  EXPECT_EQ(answer["verdict"], "Course files have been successfully compressed.");
  ASSERT_EQ(answer["steps"].size(), 2U);
  EXPECT_EQ(answer["steps"][1]["file"], "g.hlb");
  EXPECT_TRUE(std::filesystem::exists(Host("out.hlz")));
  EXPECT_EQ(Run("compress 'Old Elm' --without nothing").status, 1);
  EXPECT_EQ(Run("--json --no compress 'Old Elm'").Answer()["messages"].size(), 0U) << "nothing is left out";
}

TEST_F(TurfctlTest, SettingsAndTree) {
  EXPECT_EQ(Run("settings get target").output, "C:\\KESTRAVON\n");
  EXPECT_EQ(Run(R"(settings set Target 'D:\x')").status, 0);
  EXPECT_EQ(Run("--json settings list").Answer()["settings"]["Target"], R"(D:\x)");
  EXPECT_EQ(Run("settings get Nothing").status, 1);
  const std::string key = R"('Software\Turf Desk Tests')";
  EXPECT_EQ(Run("tree set " + key + " '' 'the default'").status, 0);
  EXPECT_EQ(Run("tree set " + key + "'\\sub' name ''").status, 0);
  EXPECT_EQ(Run("tree get " + key + " ''").output, "the default\n");
  EXPECT_EQ(Run("tree keys " + key).output, "sub\n");
  EXPECT_EQ(Run("tree delete " + key).status, 1) << "it has a subkey";
  EXPECT_EQ(Run("tree delete " + key + "'\\SUB'").status, 0);
  EXPECT_EQ(Run("tree delete " + key).status, 0);
  EXPECT_EQ(Run("tree keys " + key).status, 1);
}

TEST_F(TurfctlTest, AWrongCommandLineIsToldInTheFormAskedFor) {
  const struct {
    const char *arguments;
    const char *words;
  } cases[] = {
      {"settings set InstallDir -x", "There is no option -x. A text that begins with a dash is put behind --."},
      {"list --frob", "There is no option --frob. A text that begins with a dash is put behind --."},
      {"settings get", "name is required"},
  };
  for (const auto &[arguments, words] : cases) {
    const Outcome plain = Run(arguments);
    EXPECT_EQ(plain.status, 2) << arguments;
    EXPECT_EQ(plain.errors, std::string(words) + "\nRun with --help for more information.\n");
    const Outcome json = Run(std::string(arguments) + " --json");
    EXPECT_EQ(json.status, 2) << arguments;
    const Json message = {{"kind", "error"}, {"title", "Turf Desk"}, {"text", words}, {"answer", "ok"}};
    EXPECT_EQ(
        json.Answer(),
        Json({{"result", false}, {"verdict", ""}, {"messages", Json::array({message})}, {"steps", Json::array()}}));
  }
  EXPECT_TRUE(Run("--json --help").output.starts_with("Looks after"));
  ASSERT_EQ(Run("settings set InstallDir -- -x").status, 0);
  EXPECT_EQ(Run("settings get InstallDir").output, "-x\n");
}

TEST_F(TurfctlTest, ExitStatusesTellUsageAndServicesApart) {
  EXPECT_EQ(Run("--help").status, 0);
  for (const char *wrong : {"", "dance", "--yes --no list", "install", "tree get x"})
    EXPECT_EQ(Run(wrong).status, 2) << wrong;
  for (const char *failing : {R"(install 'C:\none.hlc')", R"(install 'C:\notes.txt')", "show nothing"}) {
    const Outcome outcome = Run(std::string("--json ") + failing);
    EXPECT_EQ(outcome.status, 1) << failing;
    EXPECT_EQ(outcome.Answer()["messages"].size(), 1U) << failing;
  }
}

} // namespace turfdesk
