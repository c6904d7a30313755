// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/TurfctlTest.h"

namespace turfdesk {

namespace {

const std::string game = R"([HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002])";

class ExchangeCommandsTest : public TurfctlTest {
protected:
  void Write(const std::string &name, const std::string &text) const {
    samples::WriteFile(Host(name), samples::ToBytes(text));
  }
  std::string Read(const std::string &name) const {
    const samples::Bytes content = samples::ReadFile(Host(name));
    return {content.begin(), content.end()};
  }
};

} // namespace

TEST_F(ExchangeCommandsTest, WhatIsExportedCanBeImported) {
  ASSERT_EQ(Run(R"(settings set Target 'D:\Gölf')").status, 0);
  const Outcome printed = Run("tree export");
  ASSERT_EQ(printed.status, 0);
  EXPECT_TRUE(printed.output.starts_with(std::string("\xFF\xFEW\0i\0", 6)));
  const Json exported = Run(R"(--json tree export 'C:\out.reg')").Answer();
  EXPECT_EQ(exported["verdict"], "Settings have been successfully exported.");
  EXPECT_EQ(Read("out.reg"), printed.output);
  const std::string text =
      "Windows Registry Editor Version 5.00\r\n\r\n" + game + "\r\n\"Target\"=\"D:\\\\Gölf\"\r\n\r\n";
  EXPECT_EQ(Run("--json tree export").Answer(), Json({{"text", text}}));

  ASSERT_EQ(Run("settings set Target other").status, 0);
  const Outcome imported = Run("tree import '" + HostText("out.reg") + "'");
  EXPECT_EQ(imported.output, "Settings have been successfully imported: keys 1, values written 1, deletions 0, other "
                             "keys skipped 0.\n");
  EXPECT_EQ(Run("settings get Target").output, "D:\\Gölf\n");
}

TEST_F(ExchangeCommandsTest, AnImportCountsWhatItDid) {
  ASSERT_EQ(Run("settings set Target old").status, 0);
  Write("in.reg", "Windows Registry Editor Version 5.00\n" + game +
                      "\n\"InstallDir\"=\"x\"\n\"n\"=dword:1\n\"Target\"=-\n\"b\"=hex:00\n"
                      "[HKEY_CURRENT_USER\\Other]\n\"x\"=\"y\"\n");
  const Outcome imported = Run(R"(--json tree import 'C:\in.reg')");
  EXPECT_EQ(imported.Boxes().size(), 1U) << "the skipped value is told";
  const Json answer = imported.Answer();
  EXPECT_EQ(answer["result"], true);
  EXPECT_EQ(
      (std::array{answer["keys"], answer["written"], answer["deleted"], answer["skipped"], answer["skippedValues"]}),
      (std::array<Json, 5>{1, 2, 1, 1, 1}));
}

TEST_F(ExchangeCommandsTest, FailuresTellTheirPath) {
  Write("out.reg", "mine");
  for (const char *failing :
       {R"(import 'C:\out.reg')", R"(import 'C:\none.reg')", R"(import 'C:\')", R"(export 'C:\out.reg')",
        R"(export 'C:\none\out.reg')", R"(export 'Q:\out.reg')", R"(export 'C:\')"}) {
    const Outcome outcome = Run(std::string("--json tree ") + failing);
    EXPECT_EQ(outcome.status, 1) << failing;
    EXPECT_NE(outcome.Boxes().at(0).find(":\\"), std::string::npos) << failing;
  }
  EXPECT_EQ(Read("out.reg"), "mine");
}

} // namespace turfdesk
