// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/SettingsExchangeTest.h"

#include "catalogue/Catalogue.h"
#include "shell/Main.h"
#include "support/basVorinRegistry.h"

#include "common/InjectedFault.h"

#include <sqlite3.h>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

// What can befall the settings store that the program keeps itself where there is no registry.

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

/// Statements that change the store until one fails; 0 lets all pass.
int statementsUntilFailure = 0;

class PosixSettingsTest : public testing::Test {
protected:
  test::TestWorld world;
  SharedState &state = world.state;
};

} // namespace

// Takes the place of SQLite's own.
extern "C" int sqlite3_step(sqlite3_stmt *statement) {
  static const auto real = reinterpret_cast<int (*)(sqlite3_stmt *)>(dlsym(RTLD_NEXT, "sqlite3_step"));
  // Those that SQLite makes for itself have no text.
  const char *text = sqlite3_sql(statement);
  const std::string_view sql = text != nullptr ? text : "";
  const bool isCounted = statementsUntilFailure > 0 && (sql.starts_with("INSERT") || sql.starts_with("DELETE"));
  return isCounted && --statementsUntilFailure == 0 ? SQLITE_FULL : real(statement);
}

TEST(PosixMainTest, ADamagedTreeIsToldRepairedAndEndsTheProgram) {
  test::TempFolder home;
  test::ScriptedBoxes boxes;
  test::CountingScreen screen;
  const auto start = [&] {
    const auto platform = MakePlatform(home.Path().string());
    SharedState state(*platform, boxes, screen);
    const bool started = Main(state, "");
    if (started) {
      SetRegistryValue(state, LocalMachine, BaseKey, "InstallDir", R"(D:\Golf)");
      platform->NoteCleanStart();
    }
    return std::pair(started, state.installDir);
  };
  ASSERT_TRUE(start().first);
  ASSERT_TRUE(start().first);
  std::filesystem::resize_file(home.Path() / "settings.db", 5000);
  EXPECT_FALSE(start().first);
  const Texts texts = boxes.TakeTexts();
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_TRUE(texts[0].starts_with("basVorinInit.Init(): "));
  EXPECT_EQ(texts[1], "Necessary dll's have been unregistered.\r\nTurf Desk will attempt to restore them.\r\n"
                      "Please restart Turf Desk.");
  EXPECT_EQ(start(), std::pair(true, std::string(R"(D:\Golf)"))) << "the good copy is back";
}

TEST_F(PosixSettingsTest, WhatIsNoUnicodeIsNotExported) {
  ASSERT_TRUE(SetRegistryValue(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)", "y", "\xE4"));
  EXPECT_FALSE(ExportSettings(state, R"(C:\out.reg)"));
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{base + "\r\n\r\nA name or a text of this settings key cannot be written to a file."});
  EXPECT_FALSE(std::filesystem::exists(world.Host(R"(C:\out.reg)")));
}

TEST_F(PosixSettingsTest, AnImportThatFailsAnywhereChangesNothing) {
  const Change change;
  test::TestProgram other(world.Home());
  ASSERT_TRUE(Import(world, change.old));
  WriteText(world.Host(file), change.update);
  ImportCounts counts;
  int failures = 0;
  for (int statement = 1; failures == statement - 1; ++statement) {
    statementsUntilFailure = statement;
    const bool isImported = ImportSettings(state, file, counts);
    const bool hasFailed = std::exchange(statementsUntilFailure, 0) == 0;
    EXPECT_EQ(isImported, !hasFailed) << statement;
    EXPECT_EQ(world.boxes.TakeTexts().size(), hasFailed ? 1U : 0U) << statement;
    for (SharedState *view : {&state, &other.state})
      ASSERT_EQ(SettingsOf(*view), hasFailed ? change.before : change.after) << statement;
    EXPECT_EQ(GetRegistryValue(other.state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)", "InstallDir", ""),
              hasFailed ? "old" : "new");
    failures += hasFailed ? 1 : 0;
  }
  EXPECT_GT(failures, 10) << "one for each key and value that comes or goes";
}

TEST_F(PosixSettingsTest, ADiskThatFailsOrAProcessThatDiesLeavesAllOrNothing) {
  enum End { Untouched, Failed, DoneInSpiteOfFault };
  const Change change;
  const test::TempFolder home;
  for (const int error : {EIO, ENOSPC, Fault::Kill}) {
    int status = -1;
    int call = 0;
    while (status != Untouched) {
      {
        test::TestProgram program(home.Path());
        ASSERT_TRUE(Import(program, change.old));
        WriteText(program.Host(file), change.update);
      }
      ++call;
      const pid_t process = fork();
      if (process == 0) {
        test::TestProgram program(home.Path());
        const InjectedFault fault({{"write", "pwrite", "ftruncate", "fsync", "fdatasync"}, error, call, call});
        ImportCounts counts;
        const bool isImported = ImportSettings(program.state, file, counts);
        _exit(!isImported ? Failed : fault.Count() == 0 ? Untouched : DoneInSpiteOfFault);
      }
      ASSERT_EQ(waitpid(process, &status, 0), process);
      const std::string found = SettingsIn(home.Path());
      ASSERT_TRUE(found == change.after || found == change.before) << error << " at call " << call;
      if (WIFEXITED(status)) {
        status = WEXITSTATUS(status);
        ASSERT_EQ(found == change.after, status != Failed) << error << " at call " << call;
      }
    }
    EXPECT_GT(call, 10) << "the import writes and flushes a journal and many pages";
  }
}

} // namespace turfdesk
