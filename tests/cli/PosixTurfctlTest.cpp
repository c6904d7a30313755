// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/TurfctlTest.h"

#include <unistd.h>

namespace turfdesk {

namespace {

/// What only this system has: devices, a home folder and a settings store that can be damaged.
class PosixTurfctlTest : public TurfctlTest {
protected:
  const std::string command = std::string(TURFCTL) + " --home '" + home.Path().string() + "' ";
};

} // namespace

TEST_F(PosixTurfctlTest, ATerminalGetsTextThatCanBeRead) {
  const test::ProgramRun run = test::RunProgram("/usr/bin/script", {"-qec", command + "tree export", "/dev/null"}, "");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "Windows Registry Editor Version 5.00\r\n\r\n");
}

TEST_F(PosixTurfctlTest, AFileThatCannotBeReadIsNamedAndAnAnswerThatCannotBeWrittenIsNoSuccess) {
  const Outcome unreadable = Run("--json tree import /proc/self/mem");
  EXPECT_EQ(unreadable.status, 1);
  EXPECT_NE(unreadable.Boxes().at(0).find(":\\"), std::string::npos);
  EXPECT_EQ(test::RunProgram("/bin/sh", {"-c", command + "settings list > /dev/full"}, "").status, 1);
}

TEST_F(PosixTurfctlTest, WhatAnotherProcessInstallsUnderAQuestionKeepsTheLibraryThatItNeeds) {
  samples::WriteCourse(Host("Golf/Elm.hlc"), elm);
  samples::WriteLibrary(Host("Golf/Grass.hlb"), grass);
  samples::WriteCourse(Host("Golf/Need.hlc"), {.name = "Need", .libraries = {grass}});
  ASSERT_EQ(Run("--yes install 'C:\\Golf\\Elm.hlc' 'C:\\Golf\\Grass.hlb'").status, 0);
  // The second begins when the first has asked, and the first is answered when the second has ended. When the first has
  // ended the shell forgets COPROC.
  const std::string script =
      "coproc " + command + "--ask uninstall 'Old Elm' 2>&1\nexec 3<&${COPROC[0]}\nread -ru 3 -d ? asked\n" + command +
      "--yes install 'C:\\Golf\\Need.hlc' > /dev/null\necho y >&${COPROC[1]}\n" + "cat <&3\n" + command + "list";
  const test::ProgramRun run = test::RunProgram("/bin/bash", {"-c", script}, "");
  EXPECT_NE(run.output.find("The catalogue was changed by another program."), std::string::npos) << run.output;
  EXPECT_EQ(run.output.find("Do you wish to delete it?"), std::string::npos) << run.output;
  for (const char *name : {"Golf/Elm.hlc", "Golf/Grass.hlb", "Golf/Need.hlc"})
    EXPECT_TRUE(std::filesystem::exists(Host(name))) << name;
  EXPECT_NE(run.output.find("Old Elm\n"), std::string::npos) << run.output;
}

TEST_F(PosixTurfctlTest, NoFolderIsTakenForAnother) {
  const auto shell = [this](const std::string &work) {
    const std::string gone = home.Path().string() + "/gone";
    return test::RunProgram("/bin/sh", {"-c", "mkdir " + gone + " && cd " + gone + " && rmdir " + gone + " && " + work},
                            "");
  };
  const std::string words =
      "The path is relative, and the current folder is gone.\nRun with --help for more information.\n";
  for (const std::string &work :
       {command + "install x.hlc", command + "move Elm --to .", std::string(TURFCTL) + " --home x list"}) {
    const test::ProgramRun run = shell(work);
    EXPECT_EQ(run.status, 2) << work;
    EXPECT_TRUE(run.errors.ends_with(words)) << run.errors;
  }
  EXPECT_EQ(shell("TURFDESK_HOME=x " + std::string(TURFCTL) + " list").status, 3);
  EXPECT_EQ(test::RunProgram(TURFCTL, {"--home", "", "list"}, "").status, 2);
}

TEST_F(PosixTurfctlTest, ASignalTakesTheTemporaryFolderAlong) {
  samples::WritePackage(home.Path() / "p.hlz", {{"Elm.hlc", samples::CourseBytes(elm)}});
  // Waits at a question for whoever holds the pipe, with the course extracted.
  const std::string script =
      "cd '" + home.Path().string() + "'; mkfifo input; mkdir tmp; TMPDIR=$PWD/tmp " + command +
      "--ask install p.hlz <input >/dev/null 2>told & exec 3>input; until grep -q no? told; do :; done; "
      "ls tmp/*/; kill -$0 $!; wait $!; echo $?; ls -A tmp; rm -r input tmp";
  for (const auto &[signal, status] : {std::pair("TERM", "143"), {"HUP", "129"}})
    EXPECT_EQ(test::RunProgram("/bin/sh", {"-c", script, signal}, "").output, std::string("Elm.hlc\n") + status + "\n");
}

TEST_F(PosixTurfctlTest, WhoeverStopsReadingDoesNotStopTheWork) {
  samples::WriteCourse(Host("Elm.hlc"), {.name = "Elm"});
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  const std::string closed = std::to_string(ends[1]);
  EXPECT_EQ(test::RunProgram("/bin/sh", {"-c", command + "install 'C:\\Elm.hlc' >&" + closed}, "").status, 1);
  close(ends[1]);
  EXPECT_EQ(Run("--json list --courses").Answer()["courses"].size(), 1U);
}

TEST_F(PosixTurfctlTest, DrivesThatCannotBeUsedAreNamedAndMadeAnewWhereThereAreNone) {
  const std::string place = "\r\n\r\n" + (home.Path() / "drives").string();
  std::ofstream(home.Path() / "drive_c") << "in the way";
  const Outcome outcome = Run("--json list");
  EXPECT_EQ(outcome.status, 3);
  const std::string unusable = "The folder of the drives cannot be used." + place + "\r\n\r\nPath not found";
  EXPECT_EQ(outcome.Boxes(), Texts{"error [Turf Desk] " + unusable});
  std::filesystem::remove(home.Path() / "drive_c");
  std::filesystem::create_directory(home.Path() / "drives");
  const Outcome empty = Run("--json list");
  EXPECT_EQ(empty.status, 3);
  const Texts boxes = empty.Boxes();
  ASSERT_EQ(boxes.size(), 3U);
  EXPECT_EQ(boxes[0], "error [Turf Desk] basVorinInit.Init(): There are no drives in the folder for them." + place +
                          "\r\n\r\nDevice unavailable");
  EXPECT_TRUE(boxes[2].ends_with("The links c: and z: were made anew." + place)) << boxes[2];
  EXPECT_EQ(Run("list").status, 0);
}

TEST_F(PosixTurfctlTest, ADamagedStoreIsToldAndRepaired) {
  ASSERT_EQ(Run(R"(settings set InstallDir 'D:\Golf')").status, 0);
  ASSERT_EQ(Run("list").status, 0) << "a good start makes the copy that comes back";
  std::filesystem::resize_file(home.Path() / "settings.db", 5000);
  const Outcome damaged = Run("--json list");
  EXPECT_EQ(damaged.status, 3);
  const Texts boxes = damaged.Boxes();
  ASSERT_EQ(boxes.size(), 3U) << damaged.output;
  EXPECT_TRUE(boxes[0].starts_with("error [Turf Desk] basVorinInit.Init(): "));
  EXPECT_EQ(boxes[1], "error [Turf Desk] Necessary dll's have been unregistered.\r\nTurf Desk will attempt to restore "
                      "them.\r\nPlease restart Turf Desk.");
  EXPECT_EQ(Run("settings get InstallDir").output, "D:\\Golf\n");
}

} // namespace turfdesk
