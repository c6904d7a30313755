// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/SettingsExchangeTest.h"

#include "support/RegistryTextWriter.h"
#include "support/basVorinRegistry.h"

#include "common/InjectedFault.h"
#include "samples/Basics.h"

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

constexpr const char *question = "C:\\settings.reg\r\n\r\nFile already exists. Do you wish to replace?";

class SettingsExchangeTest : public testing::Test {
protected:
  std::string ContentOf(const char *path) const {
    const samples::Bytes content = samples::ReadFile(world.Host(path));
    return {content.begin(), content.end()};
  }

  test::TestWorld world;
  SharedState &state = world.state;
};

} // namespace

TEST_F(SettingsExchangeTest, ExportImportAndExportGiveTheSameBytes) {
  std::string printable;
  for (char c = ' '; c <= '~'; ++c)
    printable += c;
  std::string entry = R"(SOFTWARE\kestravon\Marrowfell 2002\Courses\)" + printable;
  entry.erase(entry.rfind('\\'), 1);
  const std::vector<std::string> texts = {printable, "Größe 😀", "two\r\nlines", ""};
  for (const std::string &text : texts)
    ASSERT_TRUE(SetRegistryValue(state, LocalMachine, entry, text + "!", text));
  state.registryValueKind = 1;
  ASSERT_TRUE(SetRegistryValue(state, LocalMachine, entry, "number", "-7"));
  state.registryValueKind = 2;
  ASSERT_TRUE(SetRegistryValue(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002\Empty)", "", ""));
  ASSERT_TRUE(SetRegistryValue(state, LocalMachine, R"(Software\KESTRAVON\Other)", "not", "ours"));
  ASSERT_TRUE(Import(world, header + "[HKEY_CLASSES_ROOT\\.hlz\\Shell]\n@=\"x\"\n[HKEY_CLASSES_ROOT\\.hlc]"));

  ASSERT_TRUE(ExportSettings(state, R"(C:\out.reg)"));
  const std::string bytes = ContentOf(R"(C:\out.reg)");
  EXPECT_TRUE(bytes.starts_with("\xFF\xFEW"));
  test::TestWorld other;
  ASSERT_TRUE(Import(other, bytes)) << other.boxes.TakeTexts().back();
  EXPECT_EQ(RegistryTextBytes(SettingsOf(other.state)), bytes);
  for (const std::string &text : texts)
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
  ASSERT_TRUE(Import(world, OldSettings));
  ASSERT_TRUE(Import(world, header + "[-HKEY_LOCAL_MACHINE\\Software\\KESTRAVON]\n[-HKEY_LOCAL_MACHINE]\n[-" + base +
                                "\\Missing]\n[" + base + "]\n\"GONE\"=-\n\"Missing\"=-\n"));
  EXPECT_EQ(GetRegistryValue(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)", "InstallDir", ""), "old");
  EXPECT_FALSE(RegistryValueExists(state, LocalMachine, R"(Software\KESTRAVON\Marrowfell 2002)", "Gone"));
  ASSERT_TRUE(Import(world, header + "[-" + base + "]"));
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
}

TEST_F(SettingsExchangeTest, AnOldFileIsReplacedOnlyByConsentAndByAWholeOne) {
  WriteText(world.Host(file), "old");
  world.boxes.answers = {false};
  EXPECT_FALSE(ExportSettings(state, file));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{question});
  {
    const InjectedFault fault(Refusal(DiskWork::Write));
    world.boxes.answers = {true};
    EXPECT_FALSE(ExportSettings(state, file));
    EXPECT_EQ(world.boxes.TakeTexts(), (Texts{question, "C:\\settings.reg\r\n\r\nDisk full"}));
  }
  EXPECT_EQ(ContentOf(file), "old");
  world.boxes.answers = {true};
  EXPECT_TRUE(ExportSettings(state, file));
  EXPECT_NE(ContentOf(file), "old");
}

} // namespace turfdesk
