// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/SettingsExchange.h"
#include "support/RegistryTextWriter.h"
#include "support/basVorinRegistry.h"

#include "common/InjectedFault.h"
#include "common/TestWorld.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

const std::string header = "Windows Registry Editor Version 5.00\n";
const std::string base = R"(HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002)";
constexpr const char *file = R"(C:\settings.reg)";
constexpr const char *question = "C:\\settings.reg\r\n\r\nFile already exists. Do you wish to replace?";

/// Statements that change the store until one fails; 0 lets all pass.
int statementsUntilFailure = 0;

void WriteText(const std::filesystem::path &path, const std::string &text) { std::ofstream(path) << text; }

std::string ContentOf(const std::filesystem::path &path) {
  std::ifstream content(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(content), {}};
}

std::string SettingsOf(SharedState &state) {
  std::string text;
  EXPECT_TRUE(ReadSettingsText(state, text));
  return text;
}

std::string SettingsIn(const std::filesystem::path &home) {
  test::TestProgram program(home);
  return SettingsOf(program.state);
}

bool Import(test::TestProgram &program, const std::string &text) {
  WriteText(program.Host(file), text);
  ImportCounts counts;
  return ImportSettings(program.state, file, counts);
}

/// An import that changes, makes and deletes keys and values, and the settings before and after it.
struct Change {
  Change() {
    test::TestWorld world;
    Import(world, old);
    before = SettingsOf(world.state);
    Import(world, update);
    after = SettingsOf(world.state);
  }

  const std::string old = header + "[-HKEY_CLASSES_ROOT\\.hlb]\n[-" + base + "]\n[" + base +
                          "]\n\"InstallDir\"=\"old\"\n\"Gone\"=\"x\"\n[" + base +
                          "\\Courses\\{1}]\n\"Name\"=\"one\"\n[" + base + "\\Courses\\{1}\\Below]\n\"n\"=dword:1\n";
  const std::string update = header + "[-" + base + "\\Courses]\n[" + base +
                             "]\n\"InstallDir\"=\"new\"\n\"Gone\"=-\n[" + base +
                             "\\Courses\\{2}]\n\"Name\"=\"two\"\n\"Text\"=\"" + std::string(20000, 'x') +
                             "\"\n[HKEY_CLASSES_ROOT\\.hlb]\n@=\"type\"\n";
  std::string before;
  std::string after;
};

class SettingsExchangeTest : public testing::Test {
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

TEST_F(SettingsExchangeTest, ExportImportAndExportGiveTheSameBytes) {
  std::string name;
  for (char c = ' '; c <= '~'; ++c)
    name += c;
  const std::string unslashed = name.substr(0, name.find('\\')) + name.substr(name.find('\\') + 1);
  const std::string entry = R"(SOFTWARE\kestravon\Marrowfell 2002\Courses\)" + unslashed;
  for (const std::string &text : {name, std::string("Größe 😀"), std::string("two\r\nlines"), std::string()})
    ASSERT_TRUE(SetRegistryValue(state, LocalMachine, entry, text + "!", text));
  state.registryValueKind = 1;
  ASSERT_TRUE(SetRegistryValue(state, LocalMachine, entry, "number", "-7"));
  state.registryValueKind = 2;
  ASSERT_TRUE(SetRegistryValue(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002\Empty)", "", ""));
  ASSERT_TRUE(SetRegistryValue(state, LocalMachine, R"(Software\KESTRAVON\Other)", "not", "ours"));
  ASSERT_TRUE(Import(world, header + "[HKEY_CLASSES_ROOT\\.hlz\\Shell]\n@=\"x\"\n[HKEY_CLASSES_ROOT\\.hlc]"));

  ASSERT_TRUE(ExportSettings(state, R"(C:\out.reg)"));
  const std::string bytes = ContentOf(world.Host(R"(C:\out.reg)"));
  EXPECT_TRUE(bytes.starts_with("\xFF\xFEW"));
  EXPECT_EQ(bytes, RegistryTextBytes(SettingsOf(state)));
  test::TestWorld other;
  ASSERT_TRUE(Import(other, bytes)) << other.boxes.TakeTexts().back();
  EXPECT_EQ(RegistryTextBytes(SettingsOf(other.state)), bytes);
  for (const std::string &text : {name, std::string("Größe 😀"), std::string("two\r\nlines")})
    EXPECT_EQ(GetRegistryValue(other.state, LocalMachine, entry, text + "!", "absent"), text);
  EXPECT_TRUE(RegistryKeyExists(other.state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002\empty)"));
  EXPECT_FALSE(RegistryKeyExists(other.state, LocalMachine, R"(Software\KESTRAVON\Other)"));
}

TEST_F(SettingsExchangeTest, OnlyOurOwnKeysAreTakenUnderWhateverNameTheyHave) {
  const std::string machine = R"(HKEY_LOCAL_MACHINE\)";
  // The key that a line comes to, "" where it is skipped.
  const std::pair<std::string, std::string> cases[] = {
      {base, base},
      {base + R"(\Courses\{1}\)", base + R"(\Courses\{1})"},
      {machine + R"(SOFTWARE\kestravon\MARROWFELL 2002\x)", base + R"(\x)"},
      {machine + R"(SOFTWARE\WOW6432Node\KESTRAVON\Marrowfell 2002)", base},
      {machine + R"(Software\Classes\.HLB)", R"(HKEY_CLASSES_ROOT\.hlb)"},
      {R"(hkey_classes_root\.hlz\x)", R"(HKEY_CLASSES_ROOT\.hlz\x)"},
      {machine + R"(Software\KESTRAVON)", ""},
      {machine + R"(Software\KESTRAVON\Marrowfell 20022)", ""},
      {machine + R"(Software\KESTRAVON\Marrowfell)", ""},
      {machine + R"(Software\WOW6432Node)", ""},
      {R"(HKEY_CURRENT_USER\Software\KESTRAVON\Marrowfell 2002)", ""},
      {R"(HKEY_CLASSES_ROOT\.hl)", ""},
      {R"(HKEY_CLASSES_ROOT)", ""},
  };
  for (const auto &[given, taken] : cases) {
    test::TestWorld fresh;
    std::string text = header;
    text.append("[").append(given).append("]\n\"x\"=\"y\"\n\"z\"=-\n\"b\"=hex:00\n");
    WriteText(fresh.Host(file), text);
    ImportCounts counts;
    ASSERT_TRUE(ImportSettings(fresh.state, file, counts)) << given;
    const std::size_t ours = taken.empty() ? 0 : 1;
    EXPECT_EQ((std::array{counts.keys, counts.valuesWritten, counts.deletions, counts.valuesSkipped}),
              (std::array{ours, ours, ours, ours}))
        << given;
    EXPECT_EQ(counts.keysSkipped, 1 - ours) << given;
    EXPECT_EQ(SettingsOf(fresh.state).find("[" + taken + "]\r\n\"x\"=\"y\"\r\n") != std::string::npos, !taken.empty())
        << SettingsOf(fresh.state);
  }
}

TEST_F(SettingsExchangeTest, DeletionsReachNoFurtherThanOurKeys) {
  ASSERT_TRUE(Import(world, Change().old));
  ASSERT_TRUE(Import(world, header + "[-HKEY_LOCAL_MACHINE\\Software\\KESTRAVON]\n[-HKEY_LOCAL_MACHINE]\n[-" + base +
                                "\\Missing]\n[" + base + "]\n\"GONE\"=-\n\"Missing\"=-\n"));
  EXPECT_EQ(GetRegistryValue(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)", "InstallDir", ""), "old");
  EXPECT_FALSE(RegistryValueExists(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)", "Gone"));
  WriteText(world.Host(file), header + "[-" + base + "]");
  ImportCounts counts;
  ASSERT_TRUE(ImportSettings(state, file, counts));
  EXPECT_EQ(ImportVerdict(counts), "Settings have been successfully imported: keys 0, values written 0, deletions 1, "
                                   "other keys skipped 0.");
  EXPECT_FALSE(RegistryKeyExists(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)"));
  EXPECT_TRUE(RegistryKeyExists(state, LocalMachine, R"(Software\KESTRAVON)"));
}

TEST_F(SettingsExchangeTest, WhatIsWrongIsToldAndNothingChanges) {
  const std::string path = "C:\\settings.reg\r\n\r\n";
  EXPECT_FALSE(Import(world, header + "[" + base + "]\n\"x\"=\"y\"\nfoo\n[Software]\n"));
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{path + "Nothing has been imported.\r\n\r\nLine 4: The line is neither a key nor a value nor a "
                         "comment.\r\nLine 5: The key does not begin with a root, such as HKEY_LOCAL_MACHINE."});
  std::filesystem::remove(world.Host(file));
  ImportCounts counts;
  EXPECT_FALSE(ImportSettings(state, file, counts));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{path + "File not found"});
  EXPECT_EQ(SettingsOf(state), "Windows Registry Editor Version 5.00\r\n\r\n");

  EXPECT_TRUE(Import(world, header + "[" + base + "]\n\"x\"=hex(7):00\n\"y\"=\"z\"\n"));
  EXPECT_EQ(
      world.boxes.TakeTexts(),
      Texts{path + "These values are neither texts nor numbers. They were skipped.\r\n\r\nLine 3: " + base + ", x"});
  ASSERT_TRUE(SetRegistryValue(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)", "y", "\xE4"));
  EXPECT_FALSE(ExportSettings(state, R"(C:\out.reg)"));
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{base + "\r\n\r\nA name or a text of this settings key cannot be written to a file."});
  EXPECT_FALSE(std::filesystem::exists(world.Host(R"(C:\out.reg)")));
}

TEST_F(SettingsExchangeTest, AnOldFileIsReplacedOnlyByConsentAndByAWholeOne) {
  WriteText(world.Host(file), "old");
  world.boxes.answers = {false};
  EXPECT_FALSE(ExportSettings(state, file));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{question});
  {
    const InjectedFault fault("pwrite", ENOSPC);
    world.boxes.answers = {true};
    EXPECT_FALSE(ExportSettings(state, file));
    EXPECT_EQ(world.boxes.TakeTexts(), (Texts{question, "C:\\settings.reg\r\n\r\nDisk full"}));
  }
  EXPECT_EQ(ContentOf(world.Host(file)), "old");
  world.boxes.answers = {true};
  EXPECT_TRUE(ExportSettings(state, file));
  EXPECT_NE(ContentOf(world.Host(file)), "old");
}

TEST_F(SettingsExchangeTest, AnImportThatFailsAnywhereChangesNothing) {
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

TEST_F(SettingsExchangeTest, ADiskThatFailsOrAProcessThatDiesLeavesAllOrNothing) {
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
