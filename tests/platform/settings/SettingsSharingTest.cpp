// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "SettingsTestTools.h"

#include "platform/RuntimeError.h"
#include "platform/posix/PosixRegistryBranches.h"
#include "platform/posix/PosixRegistryFunctions.h"
#include "platform/posix/PosixRegistryService.h"
#include "platform/posix/SettingsRepair.h"

#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace turfdesk::test {

namespace {

using namespace std::string_literals;
using std::filesystem::perms;

constexpr std::chrono::milliseconds shortPatience{20};

class SettingsSharingTest : public testing::Test {
protected:
  SettingsSharingTest() {
    mFirst.OpenKey("Courses\\One", true);
    mFirst.SetStringValue("Name", "first");
    mSecond.OpenKey("Courses\\One", false);
  }

  TemporaryHome mHome;
  const std::string mStore = mHome.Paths().store;
  PosixRegistryService mFirst{mHome.Path(), shortPatience};
  PosixRegistryService mSecond{mHome.Path(), shortPatience};
};

TEST_F(SettingsSharingTest, HomeAndStoreAreTheirOwnersAlone) {
  EXPECT_EQ(std::filesystem::status(mHome.Path()).permissions(), perms::owner_all);
  EXPECT_EQ(std::filesystem::status(mStore).permissions(), perms::owner_read | perms::owner_write);
}

TEST_F(SettingsSharingTest, TextsAreKeptByteByByte) {
  for (const std::string &text : {"a\0b"s, "\xFF\xFE"s}) {
    mFirst.SetStringValue("Name", text);
    EXPECT_EQ(mSecond.GetStringValue("Name"), text);
  }
}

TEST(SettingsVersions, TheFirstIsReadAsItIsAndTakenOverByTheFirstWrite) {
  const TemporaryHome home;
  const std::string storePath = home.Paths().store;
  const RegistryRoot root = RegistryRoot::LocalMachine;
  {
    SettingsStore store(home.Path());
    store.CreateKey(root, "Maße\\Sub");
    store.CreateKey(root, "\u00C9\xFF");
    store.SetValue(root, "Maße", "Größe", {SettingsType::Text, 0, "old"});
  }
  // It took ß for ss, and told the case of no letter apart in a name that is no UTF-8.
  RunSql(storePath,
         "UPDATE keys SET folded = 'masse' WHERE name = 'Maße'; UPDATE entries SET folded = 'grösse';"
         "UPDATE keys SET folded = name WHERE name = CAST(x'C389FF' AS TEXT);"
         "INSERT INTO keys SELECT 1, CAST(x'C3A9FF' AS TEXT), CAST(x'C3A9FF' AS TEXT), max(id) + 1 FROM keys;"
         "PRAGMA user_version = 1");
  const std::string before = ContentOf(storePath);
  {
    SettingsStore store(home.Path());
    ASSERT_NE(store.Find(root, "MAßE\\sub"), nullptr);
    EXPECT_EQ(store.Find(root, "MAßE")->FindValue("GRÖßE")->text, "old");
    EXPECT_EQ(store.Find(root, "Masse"), nullptr);
    EXPECT_EQ(ContentOf(storePath), before) << "who only reads, writes nothing";
    store.CreateKey(root, "Masse");
    EXPECT_TRUE(store.SetValue(root, "maße", "größe", {SettingsType::Text, 0, "new"}));
  }
  SettingsStore store(home.Path());
  for (const char *key : {"Masse", "Maße\\Sub", "\u00E9\xFF", "\u00E9\xFF (2)"})
    EXPECT_NE(store.Find(root, key), nullptr) << key;
  EXPECT_EQ(store.ReadBranches(std::array{RegistryBranch{root, "Maße"}}).front().values.size(), 1U);
  EXPECT_EQ(store.DeleteKey(root, "Maße\\Sub"), SettingsStore::Deletion::Done);
  EXPECT_EQ(store.DeleteKey(root, "Maße"), SettingsStore::Deletion::Done);
  SettingsStore again(home.Path());
  EXPECT_EQ(again.Find(root, "Maße"), nullptr);
  EXPECT_NE(again.Find(root, "Masse"), nullptr);
}

TEST_F(SettingsSharingTest, ProgramsThatStartAndWriteAtOnceLoseNothing) {
  constexpr int keysEach = 25;
  const TemporaryHome home;
  const auto results = RunAtOnce([&home](int program) {
    SettingsStore store(home.Path());
    for (int number = 0; number < keysEach; ++number)
      store.CreateKey(RegistryRoot::LocalMachine, "Keys\\" + std::to_string(program) + "-" + std::to_string(number));
    return 0;
  });
  EXPECT_EQ(results, (std::array{0, 0, 0}));
  PosixRegistryService reader(home.Path());
  ASSERT_TRUE(reader.OpenKey("Keys", false));
  EXPECT_EQ(reader.SubkeyCount(), keysEach * static_cast<int>(results.size()));
}

TEST_F(SettingsSharingTest, ABusyStoreIsToldAsSuch) {
  const std::string words = "The settings are in use by another program: " + mStore;
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
  SettingsAccess access(mHome.Path(), shortPatience);
  PosixRegistryBranches branches(access);
  const auto opened = access.Open();
  {
    const SettingsLock replacingTheFile(mHome.Paths(), SettingsLock::Mode::Alone, shortPatience);
    EXPECT_FALSE(mSecond.OpenKey("Courses\\New", true));
    expectFailedWrite(mSecond);
    expectBusy([&] { PosixRegistryService(mHome.Path(), shortPatience); });
  }
  const SqliteConnection other = RunSql(mStore);
  EXPECT_EQ(mFirst.GetStringValue("Name"), "first") << "what is known needs no lock";
  mFirst.SetStringValue("Name", "new");
  expectFailedWrite(mFirst);
  EXPECT_FALSE(mFirst.OpenKey("Courses\\New", true));
  expectFailedWrite(mFirst);
  expectBusy([&] { mFirst.DeleteKey("Courses\\One"); });
  expectBusy([&] { branches.Apply(std::array{SetText("Other", "Name", "x")}); });
  expectBusy([&] { PosixRegistryService(mHome.Path(), shortPatience); });
  expectBusy([&] { RepairSettings(mHome.Paths(), shortPatience); });
}

TEST_F(SettingsSharingTest, TheFunctionsTellWhatIsTheMatterWithTheStore) {
  SettingsAccess access(mHome.Path(), shortPatience);
  PosixRegistryFunctions functions(access);
  RegistryHandle key = 0;
  ASSERT_EQ(functions.RegCreateKeyExA(RegistryRoot::ClassesRoot, ".hlc", key), RegSuccess);
  std::filesystem::permissions(mStore, perms::owner_read);
  EXPECT_EQ(functions.RegSetValueExA(key, "", RegSz, "x"), RegAccessDenied);
  std::filesystem::permissions(mStore, perms::owner_read | perms::owner_write);
  {
    const SqliteConnection other = RunSql(mStore);
    EXPECT_EQ(functions.RegSetValueExA(key, "", RegSz, "x"), RegBusy);
  }
  EXPECT_EQ(functions.RegSetValueExA(key, "", RegSz, "x"), RegSuccess);
  std::ofstream(mStore, std::ios::binary) << "no database";
  SettingsAccess laterAccess(mHome.Path());
  EXPECT_EQ(PosixRegistryFunctions(laterAccess).RegOpenKeyExA(RegistryRoot::ClassesRoot, ".hlc", key), RegCorrupt);
  EXPECT_EQ(key, 0U);
}

TEST_F(SettingsSharingTest, ReadOnlySettingsAreReadAndNotWritten) {
  for (const std::string &path : {mStore, mHome.Path()}) {
    SCOPED_TRACE(path);
    const perms before = std::filesystem::status(path).permissions();
    std::filesystem::permissions(path, perms::owner_write, std::filesystem::perm_options::remove);
    PosixRegistryService service(mHome.Path());
    ASSERT_TRUE(service.OpenKey("Courses\\One", true));
    service.SetStringValue("Name", "first");
    EXPECT_EQ(service.LastError(), 0) << "there is nothing to write";
    service.SetStringValue("Name", "new");
    EXPECT_EQ(service.LastError(), static_cast<long>(ErrorNumber::PathFileAccess));
    service.CloseKey();
    EXPECT_EQ(service.LastErrorText(), "The settings file cannot be written: " + mStore);
    EXPECT_FALSE(service.DeleteKey("Courses\\One"));
    EXPECT_FALSE(service.OpenKey("New", true));
    ASSERT_TRUE(service.OpenKey("Courses\\One", false));
    EXPECT_EQ(service.GetStringValue("Name"), "first");
    std::filesystem::permissions(path, before);
  }
}

TEST_F(SettingsSharingTest, WaitsForABusyStoreAndBuildsOnItsOutcome) {
  constexpr std::chrono::seconds patience{60};
  PosixRegistryService writer(mHome.Path(), patience);
  ASSERT_TRUE(writer.OpenKey("Before", true));
  const auto commitLater = [](SqliteConnection &connection) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    connection.Execute("COMMIT");
  };
  // With the very id that the writer would give its next key if it did not look again after the wait.
  SqliteConnection other =
      RunSql(mStore, "BEGIN IMMEDIATE; INSERT INTO keys SELECT 1, 'other', 'Other', max(id) + 1 FROM keys");
  const std::jthread first(commitLater, std::ref(other));
  ASSERT_TRUE(writer.OpenKey("After", true));
  SqliteConnection another = RunSql(mStore);
  const std::jthread second(commitLater, std::ref(another));
  PosixRegistryService reader(mHome.Path(), patience);
  for (const char *key : {"Before", "Other", "After"})
    EXPECT_TRUE(reader.KeyExists(key)) << key;
}

TEST_F(SettingsSharingTest, FollowsAStoreThatWasReplaced) {
  CopyGoodSettings(mHome.Paths());
  mSecond.SetStringValue("Name", "second");
  std::filesystem::resize_file(mStore, 5000);
  ASSERT_NE(RepairSettings(mHome.Paths(), shortPatience), "");
  PosixRegistryService reader(mHome.Path());
  ASSERT_TRUE(reader.OpenKey("Courses\\One", false));
  ASSERT_EQ(reader.GetStringValue("Name"), "first");
  mSecond.SetStringValue("Name", "second");
  EXPECT_EQ(mSecond.LastErrorText(), "");
  EXPECT_EQ(reader.GetStringValue("Name"), "second");
}

TEST_F(SettingsSharingTest, WhatBecameOfTheFileIsToldByTheNextRead) {
  struct Loss {
    const char *words;
    std::function<void(const SettingsPaths &)> inflict;
  };
  const auto replaceBy = [](const SettingsPaths &paths, const std::string &content) {
    std::ofstream(paths.unfinished, std::ios::binary) << content;
    std::filesystem::rename(paths.unfinished, paths.store);
  };
  const Loss losses[] = {
      {"is damaged", [](const SettingsPaths &paths) { std::filesystem::resize_file(paths.store, 0); }},
      {"is damaged", [&](const SettingsPaths &paths) { replaceBy(paths, "no database"); }},
      {"is missing", [](const SettingsPaths &paths) { std::filesystem::remove(paths.store); }},
      {"is missing", [](const SettingsPaths &paths) { std::filesystem::rename(paths.home, paths.home + " away"); }},
      {"is no file",
       [](const SettingsPaths &paths) {
         std::filesystem::remove(paths.store);
         std::filesystem::create_directory(paths.store);
       }},
  };
  for (const Loss &loss : losses) {
    SCOPED_TRACE(&loss - losses);
    const TemporaryHome home;
    PosixRegistryService service(home.Path(), shortPatience);
    ASSERT_TRUE(service.OpenKey("One", true));
    loss.inflict(home.Paths());
    for (int time = 0; time < 2; ++time) {
      try {
        service.ValueExists("Name");
        ADD_FAILURE() << "nothing was thrown";
      } catch (const RuntimeError &error) {
        EXPECT_NE(error.Description().find(loss.words), std::string::npos) << error.Description();
        EXPECT_TRUE(error.Description().ends_with(home.Paths().store)) << error.Description();
      }
    }
  }
}

TEST_F(SettingsSharingTest, WhileItIsHeldStillAChangeOfAnotherIsNotSeen) {
  mSecond.HoldStill(true);
  mFirst.SetStringValue("Name", "changed");
  EXPECT_EQ(mSecond.GetStringValue("Name"), "first");
  mSecond.HoldStill(false);
  EXPECT_EQ(mSecond.GetStringValue("Name"), "changed");
}

TEST_F(SettingsSharingTest, PipesAndFoldersInThePlaceOfItsFilesAreNeitherWaitedForNorReplaced) {
  const auto expectRefusal = [](const std::string &path, const std::function<void()> &call) {
    try {
      call();
      ADD_FAILURE() << "nothing was thrown";
    } catch (const RuntimeError &error) {
      EXPECT_EQ(error.Description(), "This is no file, but stands in the place of one of the settings: " + path);
    }
    EXPECT_FALSE(std::filesystem::is_regular_file(path));
  };
  for (const auto make :
       {+[](const char *path) { return mkfifo(path, 0600); }, +[](const char *path) { return mkdir(path, 0700); }}) {
    const TemporaryHome home;
    const SettingsPaths paths = home.Paths();
    for (const std::string &path :
         {paths.lock, paths.store, JournalOf(paths.store), paths.goodCopy, paths.unfinished}) {
      { const SettingsStore made(home.Path()); }
      std::filesystem::remove(path);
      ASSERT_EQ(make(path.c_str()), 0);
      const bool isForGoodCopy = path == paths.goodCopy || path == paths.unfinished;
      if (isForGoodCopy)
        expectRefusal(path, [&] { CopyGoodSettings(paths); });
      else
        expectRefusal(path, [&] { const SettingsStore store(home.Path(), shortPatience); });
      if (path == paths.goodCopy) {
        std::filesystem::resize_file(paths.store, 5000);
        expectRefusal(path, [&] { RepairSettings(paths, shortPatience); });
        std::filesystem::remove(paths.store);
      }
      std::filesystem::remove(path);
    }
  }
}

TEST_F(SettingsSharingTest, TooManyOpenFilesAreToldAsSuch) {
  rlimit before{};
  getrlimit(RLIMIT_NOFILE, &before);
  const int next = dup(0);
  close(next);
  for (const rlim_t more : {0U, 1U}) {
    const rlimit few{static_cast<rlim_t>(next) + more, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    try {
      const PosixRegistryService service(mHome.Path(), shortPatience);
      ADD_FAILURE() << "nothing was thrown";
    } catch (const RuntimeError &error) {
      EXPECT_EQ(error.Description(),
                "Too many files are open to use the settings: " + (more == 0 ? mHome.Paths().lock : mStore));
    }
    setrlimit(RLIMIT_NOFILE, &before);
  }
}

TEST_F(SettingsSharingTest, AStoreInAnotherJournalModeIsBroughtBackToOurs) {
  const TemporaryHome other;
  { const SettingsStore created(other.Path()); }
  RunSql(other.Paths().store, "PRAGMA journal_mode=WAL");
  PosixRegistryService writer(other.Path());
  PosixRegistryService reader(other.Path());
  ASSERT_TRUE(writer.OpenKey("A", true));
  EXPECT_TRUE(reader.KeyExists("A"));
}

TEST_F(SettingsSharingTest, WhatIsReplacedByItsLikeHidesNoLaterChangeOfAnother) {
  SettingsStore store(mHome.Path());
  const RegistryChange change = SetText("Courses\\One", "Name", "third");
  store.ApplyAll(std::array{change});
  store.ApplyAll(std::array{change});
  mFirst.SetStringValue("Name", "changed");
  EXPECT_EQ(store.Find(RegistryRoot::LocalMachine, "Courses\\One")->FindValue("Name")->text, "changed");
}

} // namespace

} // namespace turfdesk::test
