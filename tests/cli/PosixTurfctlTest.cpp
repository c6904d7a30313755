// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/TurfctlTest.h"

namespace turfdesk {

namespace {

/// What only this system has: devices, a home folder and a settings store that can be damaged.
class PosixTurfctlTest : public TurfctlTest {
protected:
  /// Runs turfctl from the shell, with what follows its home folder.
  Outcome RunInShell(const std::string &rest) const {
    return {test::RunProgram("/bin/sh", {"-c", std::string(TURFCTL) + " --home '" + home.Path().string() + "' " + rest},
                             "")};
  }
};

} // namespace

TEST_F(PosixTurfctlTest, ATerminalGetsTextThatCanBeRead) {
  const std::string command = std::string(TURFCTL) + " --home '" + home.Path().string() + "' tree export";
  const test::ProgramRun run = test::RunProgram("/usr/bin/script", {"-qec", command, "/dev/null"}, "");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "Windows Registry Editor Version 5.00\r\n\r\n");
}

TEST_F(PosixTurfctlTest, AFileThatCannotBeReadIsNamedAndAnAnswerThatCannotBeWrittenIsNoSuccess) {
  const Outcome unreadable = Run("--json tree import /proc/self/mem");
  EXPECT_EQ(unreadable.status, 1);
  EXPECT_NE(unreadable.Answer()["messages"][0]["text"].get<std::string>().find(":\\"), std::string::npos);
  EXPECT_EQ(RunInShell("settings list > /dev/full").status, 1);
}

TEST_F(PosixTurfctlTest, AHomeThatCannotBeMadeIsNamed) {
  std::ofstream(home.Path() / "drive_c") << "in the way";
  const Outcome outcome = Run("--json list");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.Answer()["messages"][0]["text"], "The folder for the program's own files cannot be used.\r\n\r\n" +
                                                         home.Path().string() + "\r\n\r\nPath not found");
}

TEST_F(PosixTurfctlTest, ADamagedStoreIsToldAndRepaired) {
  ASSERT_EQ(Run("list").status, 0);
  std::ofstream(home.Path() / "settings.db") << "not a settings store";
  const Outcome damaged = Run("--json list");
  EXPECT_EQ(damaged.status, 3);
  EXPECT_EQ(damaged.Answer()["messages"].size(), 3U) << damaged.output;
  EXPECT_EQ(Run("list").status, 0) << "the repair made it usable again";
}

} // namespace turfdesk
