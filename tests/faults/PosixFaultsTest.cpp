// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "NothingLostTest.h"

#include "catalogue/LoadLists.h"
#include "install/RunInstall.h"
#include "manage/Move.h"
#include "platform/posix/PosixRegistryService.h"
#include "platform/posix/SqliteConnection.h"
#include "support/basVorinFile.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

namespace turfdesk {

namespace {

/// Commands whose process is killed on the way, and what is found afterwards.
class KillTest : public testing::TestWithParam<Command> {
protected:
  void KillAtEachCall(bool unnamedFiles) {
    const std::vector<std::string> calls = {
        "copy_file_range", "fallocate", "fdatasync", "fsync",           "ftruncate", "linkat",   "open", "openat",
        "openat unnamed",  "pwrite",    "renameat",  "sync_file_range", "unlink",    "unlinkat", "write"};
    int killed = 0;
    for (bool isDone = false; !isDone && !HasFailure(); ++killed) {
      SCOPED_TRACE("at call " + std::to_string(killed + 1));
      const test::GolfHome home;
      const pid_t process = fork();
      if (process == 0) {
        test::GolfProgram program(home.Path());
        program.boxes.decide = AgreeToEverything;
        const InjectedFault simpleDisk(unnamedFiles ? "" : "openat unnamed", EOPNOTSUPP);
        const InjectedFault death({calls, Fault::Kill, killed + 1});
        GetParam().run(program);
        _exit(0);
      }
      int status = 0;
      waitpid(process, &status, 0);
      isDone = WIFEXITED(status);
      EXPECT_EQ(status, isDone ? 0 : SIGKILL);
      Examine(home.Path());
    }
    EXPECT_GT(killed, 10);
  }

  /// Looks at what a killed command has left, and whether one can go on from there.
  void Examine(const std::filesystem::path &home) {
    mPictures.now = Look(home);
    ExpectNothingLost(mPictures);
    ExpectOldOrNewFiles(mPictures, true);
    ExpectForeignFilesKept(GetParam(), mPictures);
    ExpectOldOrNewCatalogue(mPictures);
    if (HasFailure())
      return;
    RunAgain(home);
    mPictures.now = Look(home);
    ExpectNothingLost(mPictures);
  }

private:
  void RunAgain(const std::filesystem::path &home) {
    test::GolfProgram program(home);
    program.boxes.decide = AgreeToEverything;
    if (GetParam().work == Work::Move)
      MoveOn(program);
    else if (GetParam().work != Work::Uninstall || mPictures.now.rows != mPictures.done.rows)
      RepeatCommand(program);
  }

  /// The same once more. A file that was copied and not yet catalogued must be installed where it lies first.
  void RepeatCommand(test::GolfProgram &program) {
    if (GetParam().run(program))
      return;
    const std::string why = program.boxes.shown.empty() ? "" : program.boxes.shown.back().text;
    ASSERT_NE(why.find(" needs to be installed in a different directory."), std::string::npos) << why;
    const std::string path = why.substr(why.find("C:\\"));
    const std::string folder = GetPathPart(program.state, path);
    EXPECT_TRUE(RunInstall(program.state, {folder, folder, {GetFilePart(program.state, path)}}, program.window));
    EXPECT_TRUE(GetParam().run(program)) << program.boxes.shown.back().text;
  }

  /// What has arrived is not moved again, so all of it goes to a third place. A file that had left its old place and
  /// was not yet recorded in its new one is what cannot be found.
  void MoveOn(test::GolfProgram &program) {
    const bool isLibrary =
        mPictures.done.rows.at("course " + program.elmKey) == mPictures.before.rows.at("course " + program.elmKey);
    Row &row = isLibrary ? program.Library(program.grassKey) : program.Course(program.elmKey);
    program.state.activeList = isLibrary ? ActiveLibraries : ActiveCourses;
    program.MakeFolder(R"(C:\Again)");
    const bool moved = RunMove(program.state, {&row, R"(C:\Again)"}, program.window);
    const bool isMissing =
        std::ranges::any_of(program.boxes.shown, [](const MessageBox &box) { return box.text == "File not found"; });
    EXPECT_NE(moved, isMissing) << program.window.route.caption;
  }

  Pictures mPictures = LookBeforeAndAfter(GetParam());
};

TEST_P(KillTest, AtEachCallOfTheSystem) { KillAtEachCall(true); }

INSTANTIATE_TEST_SUITE_P(Commands, KillTest, testing::ValuesIn(Commands()),
                         [](const auto &test) { return test.param.name; });

class KillOnSimpleDiskTest : public KillTest {};

TEST_P(KillOnSimpleDiskTest, AtEachCallOfTheSystem) { KillAtEachCall(false); }

INSTANTIATE_TEST_SUITE_P(Commands, KillOnSimpleDiskTest, testing::ValuesIn(BroadestCommands()),
                         [](const auto &test) { return test.param.name; });

std::vector<Command> RecordingCommands() {
  std::vector<Command> commands = Commands();
  std::erase_if(commands, [](const Command &command) { return command.work == Work::Compress; });
  return commands;
}

/// While another program merely reads the settings, as a backup does.
class ReaderTest : public testing::TestWithParam<Command> {};

TEST_P(ReaderTest, NothingIsTouchedThatCannotBeRecorded) {
  const test::GolfHome home;
  Pictures pictures{Look(home.Path()), {}, {}};
  {
    test::GolfProgram program(home.Path());
    program.boxes.decide = AgreeToEverything;
    program.state.registryService = std::make_unique<PosixRegistryService>(home.Path(), std::chrono::milliseconds(20));
    LoadLists(program.state);
    SqliteConnection reader(home.Path() / "settings.db", std::chrono::milliseconds(0));
    SqliteTransaction reading(reader, "BEGIN");
    reader.QueryText("SELECT count(*) FROM keys");
    EXPECT_FALSE(GetParam().run(program));
    EXPECT_TRUE(std::ranges::any_of(program.boxes.shown, [](const MessageBox &box) {
      return box.text.starts_with("The settings are in use by another program: ");
    }));
  }
  pictures.now = Look(home.Path());
  std::erase_if(pictures.now.files, [](const auto &file) { return file.first.starts_with("Temp/"); });
  EXPECT_EQ(pictures.now.files, pictures.before.files);
  EXPECT_EQ(pictures.now.rows, pictures.before.rows);
}

INSTANTIATE_TEST_SUITE_P(Commands, ReaderTest, testing::ValuesIn(RecordingCommands()),
                         [](const auto &test) { return test.param.name; });

/// On a disk that cannot hold files without a name.
class NothingLostOnSimpleDiskTest : public NothingLostTest {};

TEST_P(NothingLostOnSimpleDiskTest, WhateverCallOfTheSystemFails) {
  mDisk = {{"openat unnamed"}, EOPNOTSUPP};
  RunThroughAll();
}

INSTANTIATE_TEST_SUITE_P(Commands, NothingLostOnSimpleDiskTest, testing::ValuesIn(BroadestCommands()),
                         [](const auto &test) { return test.param.name; });

} // namespace

} // namespace turfdesk
