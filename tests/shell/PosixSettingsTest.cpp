// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/SettingsExchangeTest.h"

#include "shell/FileTypes.h"
#include "support/basVorinRegistry.h"

#include "common/InjectedFault.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

// What can befall the settings store that the program keeps itself where there is no registry.

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

/// How a process ends that imports while one call of the system fails.
enum End { Untouched, Failed, FailedAndSeesChanges, DoneInSpiteOfFault };

End ImportWithFault(const std::filesystem::path &home, int error, int call, const std::string &before) {
  test::TestProgram program(home);
  const InjectedFault fault({{"write", "pwrite", "ftruncate", "fsync", "fdatasync"}, error, call, call});
  ImportCounts counts;
  if (!ImportSettings(program.state, file, counts))
    return SettingsOf(program.state) == before ? Failed : FailedAndSeesChanges;
  return fault.Count() == 0 ? Untouched : DoneInSpiteOfFault;
}

} // namespace

TEST(PosixSettingsTest, WhatIsNoUnicodeIsNotExported) {
  test::TestWorld world;
  ASSERT_TRUE(SetRegistryValue(world.state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)", "y", "\xE4"));
  EXPECT_FALSE(ExportSettings(world.state, R"(C:\out.reg)"));
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{base + "\r\n\r\nA name or a text of this settings key cannot be written to a file."});
  EXPECT_FALSE(std::filesystem::exists(world.Host(R"(C:\out.reg)")));
}

TEST(PosixSettingsTest, FileTypesThatCannotBeWrittenCostOneBox) {
  test::TestWorld world;
  const std::filesystem::path store = world.Home() / "settings.db";
  test::SetReadOnly(store, true);
  RegisterFileTypes(world.state);
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"The settings file cannot be written: " + store.string()});
  test::SetReadOnly(store, false);
  RegisterFileTypes(world.state);
  test::SetReadOnly(store, true);
  RegisterFileTypes(world.state);
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{}) << "there is nothing to write";
}

TEST(PosixSettingsTest, ADiskThatFailsOrAProcessThatDiesLeavesAllOrNothing) {
  // It changes, makes and deletes keys and values.
  const std::string update = header + "[-" + base + "\\Courses]\n[" + base +
                             "]\n\"InstallDir\"=\"new\"\n\"Gone\"=-\n[" + base +
                             "\\Courses\\{2}]\n\"Name\"=\"two\"\n\"Text\"=\"" + std::string(20000, 'x') +
                             "\"\n[HKEY_CLASSES_ROOT\\.hlb]\n@=\"type\"\n";
  const test::TempFolder home;
  const auto import = [&home](const std::string &text) {
    test::TestProgram program(home.Path());
    EXPECT_TRUE(Import(program, text));
    return SettingsOf(program.state);
  };
  const std::string before = import(OldSettings);
  const std::string after = import(update);
  for (const int error : {EIO, ENOSPC, Fault::Kill}) {
    int status = -1;
    int call = 0;
    while (status != Untouched) {
      ASSERT_EQ(import(OldSettings), before);
      WriteText(test::HostIn(home.Path(), file), update);
      ++call;
      const pid_t process = fork();
      if (process == 0)
        _exit(ImportWithFault(home.Path(), error, call, before));
      ASSERT_EQ(waitpid(process, &status, 0), process);
      test::TestProgram next(home.Path());
      const std::string found = SettingsOf(next.state);
      ASSERT_TRUE(found == after || found == before) << error << " at call " << call;
      if (WIFEXITED(status)) {
        status = WEXITSTATUS(status);
        ASSERT_EQ(status == Untouched || status == DoneInSpiteOfFault, found == after) << error << " at call " << call;
        ASSERT_NE(status, FailedAndSeesChanges) << error << " at call " << call;
      }
    }
    EXPECT_GT(call, 10) << "the import writes and flushes a journal and many pages";
  }
}

} // namespace turfdesk
