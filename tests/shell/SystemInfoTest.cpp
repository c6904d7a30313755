// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/SystemInfo.h"

#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace turfdesk {

namespace {

using namespace std::chrono_literals;

/// A tree of one value, whatever is asked for.
class OneValue final : public RegistryFunctions {
public:
  std::int32_t RegCreateKeyExA(RegistryRoot, std::string_view, RegistryHandle &) override { return RegAccessDenied; }
  std::int32_t RegOpenKeyExA(RegistryRoot, std::string_view, RegistryHandle &key) override {
    key = openCode == RegSuccess ? 7 : 0;
    return openCode;
  }
  std::int32_t RegQueryValueExA(RegistryHandle, std::string_view, std::uint32_t &foundType,
                                std::string &foundData) override {
    foundType = type;
    foundData = data;
    return queryCode;
  }
  std::int32_t RegSetValueExA(RegistryHandle, std::string_view, std::uint32_t, std::string_view) override {
    return RegAccessDenied;
  }
  std::int32_t RegCloseKey(RegistryHandle key) override {
    closed.push_back(key);
    return RegSuccess;
  }

  std::int32_t openCode = RegSuccess;
  std::int32_t queryCode = RegSuccess;
  std::uint32_t type = RegSz;
  std::string data;
  std::vector<RegistryHandle> closed;
};

class SystemInfoTest : public testing::Test {
protected:
  void Name(const std::string &key, const char *value, const std::string &text) {
    ASSERT_TRUE(SetRegistryValue(state, LocalMachine, "Software\\Microsoft\\" + key, value, text));
  }
  /// A program that leaves a note beside it and, without arguments, does nothing else.
  void PutTool(const std::string &path) const {
    std::filesystem::create_directories(world.Host(path).parent_path());
    std::filesystem::copy_file(std::filesystem::path(SAMPLE_CONVERTERS) / "LayoutConverter.exe", world.Host(path));
  }
  bool HasNote(const std::string &tool) const { return std::filesystem::exists(world.Host(tool + ".arguments")); }
  bool WasStarted(const std::string &tool) const {
    const auto patience = std::chrono::steady_clock::now() + 10s;
    while (!HasNote(tool) && std::chrono::steady_clock::now() < patience)
      std::this_thread::sleep_for(10ms);
    return HasNote(tool);
  }
  void ExpectUnavailable() {
    StartSysInfo(state);
    ASSERT_EQ(world.boxes.shown.size(), 1U);
    EXPECT_EQ(world.boxes.shown[0].title, "TurfDesk");
    EXPECT_EQ(world.boxes.shown[0].icon, BoxIcon::None);
    EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"System Information Is Unavailable At This Time"});
  }

  test::TestWorld world;
  SharedState &state = world.state;
};

} // namespace

TEST(GetKeyValueTest, MakesATextOfTheValue) {
  using namespace std::string_literals;
  const struct {
    std::uint32_t type;
    std::string data;
    std::string text;
  } cases[] = {
      {RegSz, "C:\\Tool.exe\0"s, "C:\\Tool.exe"},
      {RegSz, "no terminator", "no terminator"},
      {RegSz, "only one goes\0\0"s, "only one goes\0"s},
      {RegSz, "", ""},
      {RegSz, std::string(1023, 'x') + '\0', std::string(1023, 'x')},
      {RegDword, "\x04\x03\x02\x01", "&hbefore1234"},
      {RegDword, "\x05\0\0\0"s, "&hbefore005"},
      {RegDword, "\xCD\xAB\0\xFF"s, "&hbeforeFF0ABCD"},
      {3, "bytes", "before"},
  };
  for (const auto &[type, data, text] : cases) {
    OneValue tree;
    tree.type = type;
    tree.data = data;
    std::string value = "before";
    EXPECT_TRUE(GetKeyValue(tree, RegistryRoot::LocalMachine, "key", "value", value));
    EXPECT_EQ(value, text);
    EXPECT_EQ(tree.closed, std::vector<RegistryHandle>{7});
  }
}

TEST(GetKeyValueTest, WhatCannotBeReadIsEmptyAndTheKeyIsClosed) {
  OneValue closedTree;
  closedTree.openCode = RegFileNotFound;
  OneValue withoutValue;
  withoutValue.queryCode = RegFileNotFound;
  OneValue tooLong;
  tooLong.data.assign(1025, 'x');
  for (OneValue *tree : {&closedTree, &withoutValue, &tooLong}) {
    std::string value = "before";
    EXPECT_FALSE(GetKeyValue(*tree, RegistryRoot::LocalMachine, "key", "value", value));
    EXPECT_EQ(value, "");
    EXPECT_EQ(tree->closed.size(), 1U);
  }
}

TEST_F(SystemInfoTest, StartsTheToolOfThePathThatIsNamedFirst) {
  PutTool(R"(C:\Shared\MSINFO32.EXE)");
  Name("Shared Tools Location", "MSINFO", R"(C:\Shared)");
  StartSysInfo(state);
  EXPECT_TRUE(WasStarted(R"(C:\Shared\MSINFO32.EXE)"));
  PutTool(R"(C:\Named\info.exe)");
  Name(R"(Shared Tools\MSINFO)", "PATH", R"(C:\Named\info.exe)");
  StartSysInfo(state);
  EXPECT_TRUE(WasStarted(R"(C:\Named\info.exe)"));
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(SystemInfoTest, WithoutAToolThereIsAMessage) {
  ExpectUnavailable();
  Name("Shared Tools Location", "MSINFO", R"(C:\Shared)");
  ExpectUnavailable();
  PutTool(R"(C:\Shared\MSINFO32.EXE)");
  // The first path counts, although nothing is there that could be started.
  for (const char *path : {R"(C:\Named\info.exe)", ""}) {
    Name(R"(Shared Tools\MSINFO)", "PATH", path);
    ExpectUnavailable();
  }
  EXPECT_FALSE(HasNote(R"(C:\Shared\MSINFO32.EXE)"));
}

} // namespace turfdesk
