// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Aftermath.h"

#include "common/InjectedFault.h"
#include "install/RunInstall.h"
#include "manage/Move.h"
#include "support/basVorinFile.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <functional>

namespace turfdesk {

namespace {

bool AgreeToEverything(const MessageBox &) { return true; }

/// Starts work in a process of its own.
pid_t Start(const std::function<void()> &work) {
  const pid_t process = fork();
  if (process == 0) {
    work();
    _exit(0);
  }
  return process;
}

enum class End { Killed, Done };

End WaitFor(pid_t process) {
  int status = 0;
  waitpid(process, &status, 0);
  const bool killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  EXPECT_TRUE(killed || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << status;
  return killed ? End::Killed : End::Done;
}

/// Commands whose process is killed on the way, and what is found afterwards.
class KillTest : public testing::TestWithParam<Command> {
protected:
  KillTest() {
    const test::GolfHome home;
    mPictures.before = Look(home.Path());
    test::GolfProgram program(home.Path());
    program.boxes.decide = AgreeToEverything;
    EXPECT_TRUE(GetParam().run(program));
    mPictures.now = mPictures.done = Look(home.Path());
  }

  void KillAtEachCall(bool unnamedFiles) {
    const std::vector<std::string> calls = {
        "copy_file_range", "fallocate", "fdatasync", "fsync",           "ftruncate", "linkat",   "open", "openat",
        "openat unnamed",  "pwrite",    "renameat",  "sync_file_range", "unlink",    "unlinkat", "write"};
    int killed = 0;
    for (End end = End::Killed; end == End::Killed && !HasFailure(); ++killed) {
      SCOPED_TRACE("at call " + std::to_string(killed + 1));
      const test::GolfHome home;
      end = WaitFor(Start([&] {
        test::GolfProgram program(home.Path());
        program.boxes.decide = AgreeToEverything;
        const InjectedFault simpleDisk(unnamedFiles ? "" : "openat unnamed", EOPNOTSUPP);
        const InjectedFault death({calls, Fault::Kill, killed + 1});
        GetParam().run(program);
      }));
      Examine(home.Path());
    }
    EXPECT_GT(killed, 10);
  }

  /// Looks at what a killed command has left, and whether one can go on from there.
  void Examine(const std::filesystem::path &home) {
    mPictures.now = Look(home);
    ExpectNothingLost(mPictures);
    ExpectOldOrNewFiles(GetParam(), mPictures, true);
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

  Pictures mPictures;
};

TEST_P(KillTest, AtEachCallOfTheSystem) { KillAtEachCall(true); }

INSTANTIATE_TEST_SUITE_P(Commands, KillTest, testing::ValuesIn(Commands()),
                         [](const auto &test) { return test.param.name; });

class KillOnSimpleDiskTest : public KillTest {};

TEST_P(KillOnSimpleDiskTest, AtEachCallOfTheSystem) { KillAtEachCall(false); }

INSTANTIATE_TEST_SUITE_P(Commands, KillOnSimpleDiskTest, testing::ValuesIn(BroadestCommands()),
                         [](const auto &test) { return test.param.name; });

/// The real program, at moments of its run.
class TurfctlKillTest : public KillTest {
protected:
  static pid_t StartTurfctl(const test::GolfHome &home) {
    return Start([&home] {
      const std::string command =
          "exec " TURFCTL " --yes --home '" + home.Path().string() + "' " + GetParam().arguments + " >/dev/null 2>&1";
      setenv("TMPDIR", (home.Drive() / "Temp").c_str(), 1);
      execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      _exit(1);
    });
  }
};

TEST_P(TurfctlKillTest, AfterEverLongerTimes) {
  std::chrono::microseconds delay{0};
  int killed = 0;
  for (int finishedInARow = 0; finishedInARow < 10 && !HasFailure();) {
    delay += std::max(std::chrono::microseconds(250), delay / 20);
    SCOPED_TRACE("after " + std::to_string(delay.count()) + " microseconds");
    const test::GolfHome home;
    const pid_t process = StartTurfctl(home);
    usleep(static_cast<useconds_t>(delay.count()));
    kill(process, SIGKILL);
    const bool finished = WaitFor(process) == End::Done;
    finishedInARow = finished ? finishedInARow + 1 : 0;
    killed += finished ? 0 : 1;
    Examine(home.Path());
  }
  EXPECT_GT(killed, 3);
}

INSTANTIATE_TEST_SUITE_P(Commands, TurfctlKillTest, testing::ValuesIn(BroadestCommands()),
                         [](const auto &test) { return test.param.name; });

} // namespace

} // namespace turfdesk
