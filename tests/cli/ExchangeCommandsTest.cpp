// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/TurfctlTest.h"

namespace turfdesk {

namespace {

const std::string game = R"([HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002])";

class ExchangeCommandsTest : public TurfctlTest {
protected:
  void Write(const std::string &name, const std::string &text) const {
    std::ofstream(Host(name), std::ios::binary) << text;
  }
  std::string Read(const std::string &name) const {
    std::ifstream file(Host(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
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
  const std::string lines = "Windows Registry Editor Version 5.00\n" + game +
                            "\n\"InstallDir\"=\"x\"\n\"n\"=dword:1\n\"Target\"=-\n\"b\"=hex:00\n"
                            "[HKEY_CURRENT_USER\\Other]\n\"x\"=\"y\"\n";
  Write("in.reg", lines);
  const Json answer = Run(R"(--json tree import 'C:\in.reg')").Answer();
  EXPECT_EQ(answer["result"], true);
  EXPECT_EQ(answer["messages"].size(), 1U) << "the skipped value is told";
  const auto counts = [](const Json &json) {
    return std::array{json["keys"], json["written"], json["deleted"], json["skipped"], json["skippedValues"]};
  };
  EXPECT_EQ(counts(answer), (std::array<Json, 5>{1, 2, 1, 1, 1}));

  Write("in.reg", lines + "foo\n");
  ASSERT_EQ(Run("settings set InstallDir old").status, 0);
  const Outcome malformed = Run(R"(--json tree import 'C:\in.reg')");
  EXPECT_EQ(malformed.status, 1);
  EXPECT_EQ(malformed.Answer()["messages"][0]["kind"], "error");
  EXPECT_EQ(counts(malformed.Answer()), (std::array<Json, 5>{0, 0, 0, 0, 0}));
  EXPECT_EQ(Run("settings get InstallDir").output, "old\n");
}

TEST_F(ExchangeCommandsTest, FilesAreReplacedByConsentAndFailuresTellTheirPath) {
  ASSERT_EQ(Run(R"(tree export 'C:\out.reg')").status, 0);
  Write("out.reg", "mine");
  const Outcome refused = Run(R"(tree export 'C:\out.reg')");
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.errors.find("C:\\out.reg\n\nFile already exists. Do you wish to replace?"), std::string::npos);
  EXPECT_EQ(Read("out.reg"), "mine");
  EXPECT_EQ(Run(R"(--yes tree export 'C:\out.reg')").status, 0);
  for (const char *failing : {R"(import 'C:\none.reg')", R"(import 'C:\')", R"(export 'C:\none\out.reg')",
                              R"(export 'Q:\out.reg')", R"(export 'C:\')"}) {
    const Outcome outcome = Run(std::string("--json tree ") + failing);
    EXPECT_EQ(outcome.status, 1) << failing;
    EXPECT_NE(outcome.Answer()["messages"][0]["text"].get<std::string>().find(":\\"), std::string::npos) << failing;
  }
  EXPECT_EQ(Run("tree import").status, 2);
}

} // namespace turfdesk
