// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "SettingsTestTools.h"
#include "common/TestWorld.h"

#include "platform/RuntimeError.h"
#include "platform/posix/PosixSettings.h"
#include "platform/posix/SettingsAccess.h"
#include "platform/posix/SettingsRepair.h"
#include "platform/posix/SettingsStore.h"

#include <vector>

namespace turfdesk::test {

namespace {

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
constexpr const char *emptyLine = "\r\n\r\n";

void Fill(const std::string &home, const std::string &text) {
  constexpr int keys = 300;
  std::vector<RegistryChange> changes;
  changes.reserve(keys);
  for (int i = 0; i < keys; ++i)
    changes.push_back(SetText("Courses\\" + std::to_string(i), "Name", text));
  SettingsStore(home).ApplyAll(changes);
}

std::string NameIn(const std::string &home) {
  SettingsStore store(home);
  const SettingsKey *key = store.Find(machine, "Courses\\299");
  return key ? std::string(key->FindValue("Name")->text) : "";
}

std::vector<std::filesystem::path> FilesStartingWith(const std::string &home, const std::string &stem) {
  std::vector<std::filesystem::path> files;
  for (const auto &entry : std::filesystem::directory_iterator(home))
    if (entry.path().filename().string().starts_with(stem))
      files.push_back(entry.path());
  return files;
}

void Overwrite(const std::string &path, std::streamoff offset, const std::string &bytes) {
  std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(offset);
  file << bytes;
}

struct Damage {
  const char *name;
  void (*inflict)(const std::string &storePath);
};

void PrintTo(const Damage &damage, std::ostream *stream) { *stream << damage.name; }

const Damage damages[] = {
    {"CutInHalf", [](const std::string &path) { std::filesystem::resize_file(path, SizeOfFile(path) / 2); }},
    {"CutWithinTheHeader", [](const std::string &path) { std::filesystem::resize_file(path, 50); }},
    {"Emptied", [](const std::string &path) { std::filesystem::resize_file(path, 0); }},
    {"HeaderOverwritten", [](const std::string &path) { Overwrite(path, 0, std::string(100, 'x')); }},
    {"PageOverwritten", [](const std::string &path) { Overwrite(path, 12288, std::string(4096, '\x5a')); }},
    {"PageZeroed", [](const std::string &path) { Overwrite(path, 4096, std::string(4096, '\0')); }},
    {"FreePagesMiscounted", [](const std::string &path) { Overwrite(path, 36, std::string("\0\0\0\5", 4)); }},
    {"NotADatabase", [](const std::string &path) { std::ofstream(path, std::ios::binary) << "[settings]\n"; }},
    {"AnotherDatabase",
     [](const std::string &path) {
       std::ofstream{path};
       RunSql(path, "CREATE TABLE songs (title TEXT)");
     }},
    {"TableMissing", [](const std::string &path) { RunSql(path, "DROP TABLE entries"); }},
    {"TableAltered", [](const std::string &path) { RunSql(path, "ALTER TABLE keys ADD COLUMN more"); }},
    {"ValuesWithoutKey", [](const std::string &path) { RunSql(path, "DELETE FROM keys WHERE folded = '7'"); }},
    {"KeyWithoutParent", [](const std::string &path) { RunSql(path, "UPDATE keys SET parent = 9999 WHERE id = 9"); }},
    {"TypeUnknown", [](const std::string &path) { RunSql(path, "UPDATE entries SET type = 3, data = 1"); }},
};

/// A store that is "newer" than its good copy, "good".
class SettingsRepairTest : public testing::Test {
protected:
  SettingsRepairTest() {
    Fill(mHome.Path(), "good");
    RefreshGoodCopy(mHome.Path());
    Fill(mHome.Path(), "newer");
  }

  /// What the program told at its next start, "" for nothing.
  std::string Restart() {
    EXPECT_THROW(OpenRegistryService(mHome.Path()), RuntimeError);
    RestoreSettings(mHome.Path(), mBoxes);
    const std::vector<std::string> texts = mBoxes.TakeTexts();
    EXPECT_LE(texts.size(), 1U);
    return texts.empty() ? "" : texts.front();
  }

  std::size_t KeptFiles() const { return FilesStartingWith(mHome.Path(), "settings.damaged-").size(); }

  TemporaryHome mHome;
  const std::string mStore = mHome.Paths().store;
  ScriptedBoxes mBoxes;
};

class SettingsDamageTest : public SettingsRepairTest, public testing::WithParamInterface<Damage> {};

TEST_P(SettingsDamageTest, SetsTheDamagedFileAsideAndBringsTheGoodCopyBack) {
  GetParam().inflict(mStore);
  const std::string damaged = ContentOf(mStore);
  try {
    OpenRegistryService(mHome.Path());
    FAIL() << "the damage was not noticed";
  } catch (const RuntimeError &error) {
    EXPECT_TRUE(error.Description().starts_with("The settings file is ")) << error.Description();
    EXPECT_NE(error.Description().find(mStore), std::string::npos) << error.Description();
  }
  const std::string text = Restart();
  const auto kept = FilesStartingWith(mHome.Path(), "settings.damaged-");
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_EQ(ContentOf(kept.front()), damaged);
  EXPECT_EQ(text, "The settings file was damaged and was kept as" + (emptyLine + kept.front().string()) + emptyLine +
                      "The last good copy of the settings was brought back.");
  EXPECT_EQ(NameIn(mHome.Path()), "good");
  RestoreSettings(mHome.Path(), mBoxes);
  EXPECT_EQ(mBoxes.shown.size(), 0U) << "there is nothing to repair any more";
}

INSTANTIATE_TEST_SUITE_P(All, SettingsDamageTest, testing::ValuesIn(damages),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(SettingsRepairTest, BringsBackAMissingStore) {
  std::filesystem::remove(mStore);
  // As a crash would leave it: played into the good copy, it would spoil it.
  std::ofstream(JournalOf(mStore), std::ios::binary) << std::string(3000, 'j');
  EXPECT_NE(Restart().find("missing"), std::string::npos);
  EXPECT_EQ(NameIn(mHome.Path()), "good");
  EXPECT_EQ(KeptFiles(), 1U) << "the journal";
}

TEST_F(SettingsRepairTest, StartsEmptyWhenThereIsNothingGoodAndKeepsEveryDamagedFile) {
  for (const std::size_t round : {1U, 2U}) {
    if (round == 1)
      std::ofstream(mHome.Paths().goodCopy, std::ios::binary) << "not good";
    std::filesystem::resize_file(mStore, 4096);
    const std::string text = Restart();
    EXPECT_TRUE(text.ends_with("The settings start empty.")) << text;
    EXPECT_EQ(FilesStartingWith(mHome.Path(), "settings.good.damaged-").size(), 1U);
    EXPECT_EQ(KeptFiles(), round);
    EXPECT_EQ(NameIn(mHome.Path()), "");
    Fill(mHome.Path(), "lost again");
  }
}

TEST(SettingsRepair, AnEmptyFileWithoutAGoodCopyIsANewStore) {
  const TemporaryHome home;
  std::filesystem::create_directory(home.Path());
  { const std::ofstream empty(home.Paths().store); }
  std::ofstream(JournalOf(home.Paths().store), std::ios::binary) << "of a store that is gone";
  Fill(home.Path(), "first");
  EXPECT_EQ(NameIn(home.Path()), "first");
  EXPECT_EQ(FilesStartingWith(home.Path(), "settings.damaged-").size(), 2U) << "the empty file and the journal";
}

TEST_F(SettingsRepairTest, LeavesAloneWhatIsNotDamaged) {
  RunSql(mStore, "PRAGMA user_version=3");
  EXPECT_NE(Restart().find("later version"), std::string::npos);
  std::filesystem::remove(mStore);
  std::filesystem::create_directory(mStore);
  EXPECT_NE(Restart().find("cannot be opened"), std::string::npos);
  EXPECT_EQ(KeptFiles(), 0U);
}

TEST_F(SettingsRepairTest, AStoreThatWasBusyIsNotWaitedForAgainButToldAsSuch) {
  SettingsAccess access(mHome.Path(), std::chrono::milliseconds(20));
  {
    const SqliteConnection other = RunSql(mStore);
    EXPECT_THROW(access.Open(), RuntimeError);
    access.Restore(mBoxes);
  }
  access.Restore(mBoxes);
  const std::string text =
      "The settings were in use by another program. Nothing was changed:" + (emptyLine + mHome.Paths().store);
  EXPECT_EQ(mBoxes.TakeTexts(), (std::vector{text, text})) << "whether or not the other program has ended meanwhile";
  EXPECT_EQ(NameIn(mHome.Path()), "newer");
  std::filesystem::resize_file(mStore, 5000);
  EXPECT_THROW(access.Open(), RuntimeError);
  access.Restore(mBoxes);
  EXPECT_EQ(NameIn(mHome.Path()), "good") << "damage is repaired, though the store was busy before";
}

TEST_F(SettingsRepairTest, MovesNothingUntilTheReplacementIsReady) {
  std::filesystem::resize_file(mStore, 5000);
  std::filesystem::create_directory(mHome.Paths().unfinished);
  EXPECT_NE(Restart().find(mHome.Paths().unfinished), std::string::npos);
  EXPECT_EQ(SizeOfFile(mStore), 5000);
}

TEST_F(SettingsRepairTest, OfSomeAtOnceOnlyOneActs) {
  for (std::size_t round = 1; round <= 15; ++round) {
    std::filesystem::resize_file(mStore, 5000);
    const auto acted = RunAtOnce(
        [this](int) { return RepairSettings(mHome.Paths(), SettingsStore::DefaultPatience).empty() ? 0 : 1; });
    EXPECT_EQ(acted[0] + acted[1] + acted[2], 1);
    EXPECT_EQ(KeptFiles(), round);
    EXPECT_EQ(NameIn(mHome.Path()), "good");
  }
}

TEST_F(SettingsRepairTest, TheGoodCopyFollowsTheStoreAndNothingElse) {
  const std::string goodCopy = mHome.Paths().goodCopy;
  RefreshGoodCopy(mHome.Path());
  EXPECT_EQ(ContentOf(goodCopy), ContentOf(mStore));
  const std::string copied = ContentOf(goodCopy);
  MakeOld(goodCopy);
  const auto time = std::filesystem::last_write_time(goodCopy);
  RefreshGoodCopy(mHome.Path());
  EXPECT_EQ(std::filesystem::last_write_time(goodCopy), time) << "nothing had changed";
  Fill(mHome.Path(), "newest");
  Overwrite(mStore, 12288, std::string(4096, '\x5a'));
  RefreshGoodCopy(mHome.Path());
  EXPECT_EQ(ContentOf(goodCopy), copied) << "a damaged store is no good copy";
}

} // namespace

} // namespace turfdesk::test
