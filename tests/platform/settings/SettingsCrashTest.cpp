// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "SettingsTestTools.h"

#include "platform/RuntimeError.h"
#include "platform/posix/PosixSettings.h"
#include "platform/posix/SettingsRepair.h"
#include "platform/posix/SettingsStore.h"

#include <atomic>
#include <csignal>
#include <functional>
#include <random>
#include <sys/mman.h>

namespace turfdesk::test {

namespace {

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;

/// Runs work in another process and kills that when wait has returned.
void KillWhile(const std::function<void()> &work, const std::function<void()> &wait) {
  const pid_t process = fork();
  if (process == 0) {
    work();
    for (;;)
      pause();
  }
  wait();
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
}

int NumberIn(SettingsStore &store, const std::string &keyPath) {
  const SettingsKey *key = store.Find(machine, keyPath);
  const auto value = key ? key->FindValue("Number") : std::nullopt;
  return value ? value->number : 0;
}

/// Writes one number, rising with each transaction, to two keys; long texts spread a transaction over many pages.
void WriteWithoutEnd(const std::string &home, std::atomic<int> &written) {
  SettingsStore store(home);
  for (int number = written + 1;; ++number) {
    const std::string text(static_cast<std::size_t>(number % 7) * 3000, 'x');
    const std::string filler = "Filler\\" + std::to_string(number % 5);
    store.ApplyAll(std::array{SetNumber("First", "Number", number), SetText(filler, "Text", text),
                              SetNumber("Last", "Number", number)});
    written = number;
  }
}

void SleepUpTo(std::mt19937 &random, int microseconds) {
  usleep(std::uniform_int_distribution<useconds_t>(0, static_cast<useconds_t>(microseconds))(random));
}

TEST(SettingsCrashTest, AKilledWriterLeavesTheOldStateOrTheNew) {
  const TemporaryHome home;
  // The processes have it in common.
  void *shared = mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  std::atomic<int> &written = *new (shared) std::atomic<int>(0);
  std::mt19937 random(1);
  int sawHotJournal = 0;
  for (int round = 0; round < 40; ++round) {
    const auto waitForWrites = [&, before = written.load()] {
      while (written == before)
        usleep(200);
      SleepUpTo(random, 8000);
    };
    KillWhile([&] { WriteWithoutEnd(home.Path(), written); }, waitForWrites);
    sawHotJournal += SizeOfFile(JournalOf(home.Paths().store)) > 0 ? 1 : 0;
    SettingsStore store(home.Path());
    const int found = NumberIn(store, "First");
    ASSERT_GE(found, written);
    ASSERT_LE(found, written + 1);
    ASSERT_EQ(NumberIn(store, "Last"), found);
    written = found;
  }
  EXPECT_GT(sawHotJournal, 0) << "no round has killed the writer within a transaction";
}

TEST(SettingsCrashTest, AKilledFirstStartLeavesNothingInTheWay) {
  std::mt19937 random(2);
  for (int round = 0; round < 25; ++round) {
    const TemporaryHome home;
    KillWhile([&] { const SettingsStore store(home.Path()); }, [&] { SleepUpTo(random, 4000); });
    SettingsStore store(home.Path());
    store.CreateKey(machine, "Software");
    EXPECT_NE(store.Find(machine, "Software"), nullptr);
  }
}

TEST(SettingsCrashTest, AKilledRepairIsFinishedByTheNext) {
  std::mt19937 random(3);
  for (int round = 0; round < 25; ++round) {
    const TemporaryHome home;
    SettingsStore(home.Path()).ApplyAll(std::array{SetNumber("Kept", "Number", 5)});
    RefreshGoodCopy(home.Path());
    const std::string damage = "damaged beyond recognition";
    std::ofstream(home.Paths().store, std::ios::binary) << damage;
    KillWhile([&] { RepairSettings(home.Paths(), SettingsStore::DefaultPatience); }, [&] { SleepUpTo(random, 4000); });
    RepairSettings(home.Paths(), SettingsStore::DefaultPatience);
    SettingsStore store(home.Path());
    EXPECT_EQ(NumberIn(store, "Kept"), 5);
    int kept = 0;
    for (const auto &entry : std::filesystem::directory_iterator(home.Path()))
      kept += ContentOf(entry.path()) == damage ? 1 : 0;
    EXPECT_EQ(kept, 1);
  }
}

} // namespace

} // namespace turfdesk::test
