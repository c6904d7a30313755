// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "SettingsTestTools.h"

#include "platform/RuntimeError.h"
#include "platform/posix/PosixRegistryService.h"
#include "platform/posix/SettingsRepair.h"

namespace turfdesk {

namespace {

constexpr std::chrono::milliseconds shortPatience{20};

class SettingsSharingTest : public testing::Test {
protected:
  SettingsSharingTest() {
    mFirst.OpenKey("Courses\\One", true);
    mFirst.SetStringValue("Name", "first");
    mSecond.OpenKey("Courses\\One", false);
  }

  TemporaryHome mHome;
  PosixRegistryService mFirst{mHome.Path(), shortPatience};
  PosixRegistryService mSecond{mHome.Path(), shortPatience};
};

TEST_F(SettingsSharingTest, EachSeesWhatTheOtherHasWritten) {
  for (int i = 0; i < 20; ++i) {
    PosixRegistryService &writer = i % 3 == 0 ? mFirst : mSecond;
    PosixRegistryService &reader = i % 3 == 0 ? mSecond : mFirst;
    writer.SetStringValue("Name", std::to_string(i));
    ASSERT_EQ(reader.GetStringValue("Name"), std::to_string(i));
    ASSERT_EQ(writer.GetStringValue("Name"), std::to_string(i));
  }
  PosixRegistryService third(mHome.Path());
  ASSERT_TRUE(third.OpenKey("Courses\\Two", true));
  ASSERT_TRUE(mFirst.OpenKey("Courses", false));
  EXPECT_EQ(mFirst.SubkeyCount(), 2);
}

TEST_F(SettingsSharingTest, SeesWhatAnotherProcessHasWritten) {
  PosixRegistryService *reader = &mFirst;
  {
    int status = 0;
    const pid_t writer = fork();
    if (writer == 0) {
      PosixRegistryService service(mHome.Path());
      service.OpenKey("Courses\\One", false);
      service.SetStringValue("Name", "from afar");
      _exit(service.LastError() == 0 ? 0 : 1);
    }
    ASSERT_EQ(waitpid(writer, &status, 0), writer);
    ASSERT_EQ(status, 0);
  }
  EXPECT_EQ(reader->GetStringValue("Name"), "from afar");
}

TEST_F(SettingsSharingTest, ProgramsThatStartAndWriteAtOnceLoseNothing) {
  constexpr int keysEach = 25;
  const TemporaryHome home;
  std::array<pid_t, 3> writers{};
  for (std::size_t i = 0; i < writers.size(); ++i) {
    writers[i] = fork();
    if (writers[i] == 0) {
      SettingsStore store(home.Path());
      for (int number = 0; number < keysEach; ++number)
        store.CreateKey(RegistryRoot::LocalMachine, "Keys\\" + std::to_string(i) + "-" + std::to_string(number));
      _exit(0);
    }
  }
  for (const pid_t writer : writers) {
    int status = -1;
    ASSERT_EQ(waitpid(writer, &status, 0), writer);
    EXPECT_EQ(status, 0);
  }
  PosixRegistryService reader(home.Path());
  ASSERT_TRUE(reader.OpenKey("Keys", false));
  EXPECT_EQ(reader.SubkeyCount(), keysEach * static_cast<int>(writers.size()));
}

TEST_F(SettingsSharingTest, AKeyThatIsDeletedElsewhereIsGone) {
  ASSERT_TRUE(mSecond.DeleteKey("Courses\\One"));
  EXPECT_FALSE(mFirst.ValueExists("Name"));
  EXPECT_EQ(mFirst.GetStringValue("Name"), "");
  mFirst.SetStringValue("Name", "again");
  EXPECT_EQ(mFirst.LastError(), static_cast<long>(ErrorNumber::PathNotFound));
  EXPECT_FALSE(mFirst.KeyExists("Courses\\One"));
}

TEST_F(SettingsSharingTest, WritesOnTopOfWhatTheOtherHasChanged) {
  ASSERT_TRUE(mSecond.DeleteKey("Courses\\One"));
  ASSERT_TRUE(mSecond.OpenKey("Courses\\Two", true));
  mSecond.SetLongValue("Number", 1);
  ASSERT_TRUE(mFirst.OpenKey("Courses\\One", true));
  mFirst.SetLongValue("Number", 2);
  ASSERT_TRUE(mSecond.OpenKey("COURSES\\ONE", false));
  EXPECT_EQ(mSecond.GetLongValue("Number"), 2);
  EXPECT_FALSE(mSecond.ValueExists("Name"));
}

TEST_F(SettingsSharingTest, ABusyStoreIsToldAsSuch) {
  const std::string words = "The settings are in use by another program: " + mHome.Paths().store;
  const auto expectBusy = [&](const std::function<void()> &call) {
    try {
      call();
      ADD_FAILURE() << "nothing was thrown";
    } catch (const RuntimeError &error) {
      EXPECT_EQ(error.Number(), ErrorNumber::PermissionDenied);
      EXPECT_EQ(error.Description(), words);
    }
  };
  const auto expectFailedWrite = [&](const PosixRegistryService &service) {
    EXPECT_EQ(service.LastError(), static_cast<long>(ErrorNumber::PermissionDenied));
    EXPECT_EQ(service.LastErrorText(), words);
  };
  {
    const SettingsLock replacingTheFile(mHome.Paths(), SettingsLock::Mode::Alone, shortPatience);
    EXPECT_FALSE(mSecond.OpenKey("Courses\\New", true));
    expectFailedWrite(mSecond);
    expectBusy([&] { PosixRegistryService(mHome.Path(), shortPatience); });
  }
  const LockingProgram other(mHome.Paths().store);
  EXPECT_EQ(mFirst.GetStringValue("Name"), "first") << "what is known needs no lock";
  mFirst.SetStringValue("Name", "new");
  expectFailedWrite(mFirst);
  EXPECT_FALSE(mFirst.OpenKey("Courses\\New", true));
  expectFailedWrite(mFirst);
  expectBusy([&] { mFirst.DeleteKey("Courses\\One"); });
  expectBusy([&] { PosixRegistryService(mHome.Path(), shortPatience); });
  expectBusy([&] { RepairSettings(mHome.Paths(), shortPatience); });
}

TEST_F(SettingsSharingTest, WaitsForABusyStoreAndBuildsOnItsOutcome) {
  constexpr std::chrono::seconds patience{60};
  constexpr useconds_t commitAfter = 100'000;
  PosixRegistryService writer(mHome.Path(), patience);
  ASSERT_TRUE(writer.OpenKey("Before", true));
  // With the very id that the writer would give its next key if it did not look again after the wait.
  const LockingProgram other(mHome.Paths().store,
                             "BEGIN IMMEDIATE; INSERT INTO keys SELECT 1, 'other', 'Other', max(id) + 1 FROM keys",
                             commitAfter);
  ASSERT_TRUE(writer.OpenKey("After", true));
  const LockingProgram another(mHome.Paths().store, "BEGIN EXCLUSIVE", commitAfter);
  PosixRegistryService reader(mHome.Path(), patience);
  for (const char *key : {"Before", "Other", "After"})
    EXPECT_TRUE(reader.KeyExists(key)) << key;
}

TEST_F(SettingsSharingTest, FollowsAStoreThatWasReplaced) {
  PosixRegistryService stale(mHome.Path());
  ASSERT_TRUE(stale.OpenKey("Courses\\One", false));
  CopyGoodSettings(mHome.Paths());
  stale.SetStringValue("Name", "second");
  std::filesystem::resize_file(mHome.Paths().store, 5000);
  ASSERT_NE(RepairSettings(mHome.Paths(), shortPatience), "");
  PosixRegistryService reader(mHome.Path());
  ASSERT_TRUE(reader.OpenKey("Courses\\One", false));
  ASSERT_EQ(reader.GetStringValue("Name"), "first");
  stale.SetStringValue("Name", "second");
  EXPECT_EQ(stale.LastErrorText(), "");
  EXPECT_EQ(reader.GetStringValue("Name"), "second");
}

TEST_F(SettingsSharingTest, AStoreInAnotherJournalModeIsBroughtBackToOurs) {
  TemporaryHome other;
  { const SettingsStore created(other.Path()); }
  RunSql(other.Paths().store, "PRAGMA journal_mode=WAL");
  PosixRegistryService writer(other.Path());
  PosixRegistryService reader(other.Path());
  ASSERT_TRUE(writer.OpenKey("A", true));
  EXPECT_TRUE(reader.KeyExists("A"));
}

TEST_F(SettingsSharingTest, WritesManyAtOnceOrNone) {
  SettingsStore store(mHome.Path());
  const RegistryChange good = SetText("Courses\\Three", "Name", "third");
  EXPECT_THROW(store.ApplyAll(std::array{good, SetText("\\Courses", "Name", "x")}), RuntimeError);
  EXPECT_EQ(store.Find(RegistryRoot::LocalMachine, "Courses\\Three"), nullptr);
  EXPECT_FALSE(mFirst.KeyExists("Courses\\Three"));
  store.ApplyAll(std::array{good});
  ASSERT_TRUE(mFirst.OpenKey("Courses\\Three", false));
  EXPECT_EQ(mFirst.GetStringValue("Name"), "third");
  // What is replaced by its like must not make the store mistake another's later change for its own.
  store.ApplyAll(std::array{good});
  mFirst.SetStringValue("Name", "changed");
  EXPECT_EQ(store.Find(RegistryRoot::LocalMachine, "Courses\\Three")->FindValue("Name")->text, "changed");
}

} // namespace

} // namespace turfdesk
