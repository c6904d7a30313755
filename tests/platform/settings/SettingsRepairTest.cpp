// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "SettingsTestTools.h"

#include "platform/RuntimeError.h"
#include "platform/posix/PosixSettings.h"
#include "platform/posix/SettingsAccess.h"
#include "platform/posix/SettingsRepair.h"
#include "platform/posix/SettingsStore.h"

#include <sys/stat.h>
#include <vector>

namespace turfdesk {

namespace {

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
constexpr const char *emptyLine = "\r\n\r\n";

class RecordedBoxes : public MessageBoxes {
public:
  BoxAnswer Show(const MessageBox &box) override {
    mShown.push_back(box);
    return BoxAnswer::Ok;
  }
  const std::vector<MessageBox> &Shown() const { return mShown; }

private:
  std::vector<MessageBox> mShown;
};

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
       std::filesystem::remove(path);
       RunSql(path, "CREATE TABLE songs (title TEXT)");
     }},
    {"TableMissing", [](const std::string &path) { RunSql(path, "DROP TABLE entries"); }},
    {"TableAltered", [](const std::string &path) { RunSql(path, "ALTER TABLE keys ADD COLUMN more"); }},
    {"ValuesWithoutKey", [](const std::string &path) { RunSql(path, "DELETE FROM keys WHERE folded = '7'"); }},
    {"KeyWithoutParent", [](const std::string &path) { RunSql(path, "UPDATE keys SET parent = 9999 WHERE id = 9"); }},
    {"TypeUnknown", [](const std::string &path) { RunSql(path, "UPDATE entries SET type = 3, data = 1"); }},
};

class SettingsRepairTest : public testing::TestWithParam<Damage> {};

TEST_P(SettingsRepairTest, SetsTheDamagedFileAsideAndBringsTheGoodCopyBack) {
  const TemporaryHome home;
  const std::string store = home.Paths().store;
  Fill(home.Path(), "good");
  RefreshGoodCopy(home.Path());
  Fill(home.Path(), "newer");
  GetParam().inflict(store);
  const std::string damaged = ContentOf(store);
  try {
    OpenRegistryService(home.Path());
    FAIL() << "the damage was not noticed";
  } catch (const RuntimeError &error) {
    EXPECT_NE(error.Description().find("The settings file is "), std::string::npos) << error.Description();
    EXPECT_NE(error.Description().find(store), std::string::npos) << error.Description();
  }

  RecordedBoxes boxes;
  RestoreSettings(home.Path(), boxes);
  const auto kept = FilesStartingWith(home.Path(), "settings.damaged-");
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_EQ(ContentOf(kept.front()), damaged);
  ASSERT_EQ(boxes.Shown().size(), 1U);
  EXPECT_EQ(boxes.Shown().front().text, "The settings file was damaged and was kept as" +
                                            (emptyLine + kept.front().string()) + emptyLine +
                                            "The last good copy of the settings was brought back.");
  EXPECT_EQ(boxes.Shown().front().title, "TurfDesk");
  EXPECT_EQ(NameIn(home.Path()), "good");

  RestoreSettings(home.Path(), boxes);
  EXPECT_EQ(boxes.Shown().size(), 1U) << "there is nothing to repair any more";
}

INSTANTIATE_TEST_SUITE_P(All, SettingsRepairTest, testing::ValuesIn(damages),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(SettingsRepair, BringsBackAMissingStore) {
  const TemporaryHome home;
  Fill(home.Path(), "good");
  RefreshGoodCopy(home.Path());
  std::filesystem::remove(home.Paths().store);
  // As a crash would leave it: played into the good copy, it would spoil it.
  std::ofstream(JournalOf(home.Paths().store), std::ios::binary) << std::string(3000, 'j');
  EXPECT_THROW(OpenRegistryService(home.Path()), RuntimeError);
  RecordedBoxes boxes;
  RestoreSettings(home.Path(), boxes);
  ASSERT_EQ(boxes.Shown().size(), 1U);
  EXPECT_NE(boxes.Shown().front().text.find("missing"), std::string::npos);
  EXPECT_EQ(NameIn(home.Path()), "good");
  EXPECT_EQ(FilesStartingWith(home.Path(), "settings.damaged-").size(), 1U) << "the journal";
}

TEST(SettingsRepair, StartsEmptyWhenThereIsNothingGood) {
  for (const bool hasCopy : {false, true}) {
    const TemporaryHome home;
    Fill(home.Path(), "good");
    if (hasCopy)
      std::ofstream(home.Paths().goodCopy, std::ios::binary) << "not good";
    std::filesystem::resize_file(home.Paths().store, 4096);
    RecordedBoxes boxes;
    RestoreSettings(home.Path(), boxes);
    ASSERT_EQ(boxes.Shown().size(), 1U);
    EXPECT_TRUE(boxes.Shown().front().text.ends_with("The settings start empty.")) << boxes.Shown().front().text;
    EXPECT_EQ(FilesStartingWith(home.Path(), "settings.good.damaged-").size(), hasCopy ? 1U : 0U);
    EXPECT_EQ(FilesStartingWith(home.Path(), "settings.damaged-").size(), 1U);
    EXPECT_EQ(NameIn(home.Path()), "");
  }
}

TEST(SettingsRepair, KeepsEveryDamagedFile) {
  const TemporaryHome home;
  for (std::size_t count = 1; count <= 3; ++count) {
    Fill(home.Path(), "lost");
    std::filesystem::resize_file(home.Paths().store, 5000);
    RepairSettings(home.Paths(), SettingsStore::DefaultPatience);
    EXPECT_EQ(FilesStartingWith(home.Path(), "settings.damaged-").size(), count);
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

TEST(SettingsRepair, LeavesAloneWhatIsNotDamaged) {
  const TemporaryHome home;
  const std::string store = home.Paths().store;
  Fill(home.Path(), "good");
  RefreshGoodCopy(home.Path());
  const struct {
    void (*change)(const std::string &path);
    const char *words;
  } cases[] = {
      {[](const std::string &path) { RunSql(path, "PRAGMA user_version=2"); }, "later version"},
      {[](const std::string &path) {
         std::filesystem::remove(path);
         std::filesystem::create_directory(path);
       },
       "cannot be opened"},
  };
  for (const auto &[change, words] : cases) {
    SCOPED_TRACE(words);
    change(store);
    EXPECT_THROW(OpenRegistryService(home.Path()), RuntimeError);
    RecordedBoxes boxes;
    RestoreSettings(home.Path(), boxes);
    ASSERT_EQ(boxes.Shown().size(), 1U);
    EXPECT_NE(boxes.Shown().front().text.find(words), std::string::npos) << boxes.Shown().front().text;
    EXPECT_EQ(FilesStartingWith(home.Path(), "settings.damaged-").size(), 0U);
  }
}

TEST(SettingsRepair, AStoreThatWasBusyIsNotWaitedForAgainButToldAsSuch) {
  const TemporaryHome home;
  Fill(home.Path(), "good");
  RefreshGoodCopy(home.Path());
  SettingsAccess access(home.Path(), std::chrono::milliseconds(20));
  RecordedBoxes boxes;
  {
    const LockingProgram other(home.Paths().store);
    EXPECT_THROW(access.Open(), RuntimeError);
    access.Restore(boxes);
  }
  access.Restore(boxes);
  ASSERT_EQ(boxes.Shown().size(), 2U) << "told whether or not the other program has ended meanwhile";
  for (const MessageBox &box : boxes.Shown())
    EXPECT_EQ(box.text,
              "The settings were in use by another program. Nothing was changed:" + (emptyLine + home.Paths().store));
  EXPECT_EQ(NameIn(home.Path()), "good");
  std::filesystem::resize_file(home.Paths().store, 5000);
  EXPECT_THROW(access.Open(), RuntimeError);
  access.Restore(boxes);
  EXPECT_EQ(NameIn(home.Path()), "good") << "damage is repaired, though the store was busy before";
}

TEST(SettingsRepair, MovesNothingUntilTheReplacementIsReady) {
  const TemporaryHome home;
  Fill(home.Path(), "good");
  RefreshGoodCopy(home.Path());
  std::filesystem::resize_file(home.Paths().store, 5000);
  std::filesystem::create_directory(home.Paths().unfinished);
  RecordedBoxes boxes;
  RestoreSettings(home.Path(), boxes);
  ASSERT_EQ(boxes.Shown().size(), 1U);
  EXPECT_NE(boxes.Shown().front().text.find(home.Paths().unfinished), std::string::npos) << boxes.Shown().front().text;
  EXPECT_EQ(SizeOfFile(home.Paths().store), 5000);
}

TEST(SettingsRepair, OfTwoAtOnceOnlyOneActs) {
  for (int round = 0; round < 15; ++round) {
    const TemporaryHome home;
    Fill(home.Path(), "good");
    RefreshGoodCopy(home.Path());
    std::filesystem::resize_file(home.Paths().store, 5000);
    std::array<pid_t, 3> repairers{};
    for (pid_t &repairer : repairers) {
      repairer = fork();
      if (repairer == 0)
        _exit(RepairSettings(home.Paths(), SettingsStore::DefaultPatience).empty() ? 0 : 1);
    }
    int acted = 0;
    for (const pid_t repairer : repairers) {
      int status = 0;
      ASSERT_EQ(waitpid(repairer, &status, 0), repairer);
      ASSERT_TRUE(WIFEXITED(status));
      acted += WEXITSTATUS(status);
    }
    EXPECT_EQ(acted, 1);
    EXPECT_EQ(FilesStartingWith(home.Path(), "settings.damaged-").size(), 1U);
    EXPECT_EQ(NameIn(home.Path()), "good");
  }
}

TEST(SettingsRepair, TheGoodCopyFollowsTheStoreAndNothingElse) {
  const TemporaryHome home;
  const std::string goodCopy = home.Paths().goodCopy;
  Fill(home.Path(), "first");
  RefreshGoodCopy(home.Path());
  const auto inodeOf = [](const std::string &path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
  };
  const auto first = inodeOf(goodCopy);
  ASSERT_NE(first, 0U);
  RefreshGoodCopy(home.Path());
  EXPECT_EQ(inodeOf(goodCopy), first) << "nothing had changed";
  Fill(home.Path(), "second");
  RefreshGoodCopy(home.Path());
  EXPECT_EQ(ContentOf(goodCopy), ContentOf(home.Paths().store));
  const std::string second = ContentOf(goodCopy);
  Fill(home.Path(), "third");
  Overwrite(home.Paths().store, 12288, std::string(4096, '\x5a'));
  RefreshGoodCopy(home.Path());
  EXPECT_EQ(ContentOf(goodCopy), second) << "a damaged store is no good copy";
}

} // namespace

} // namespace turfdesk
