// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/SystemInfo.h"

#include "support/Registry.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace turfdesk {

namespace {

using namespace std::chrono_literals;

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
    EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"System Information Is Unavailable At This Time"});
  }

  test::TestWorld world;
  SharedState &state = world.state;
};

} // namespace

TEST_F(SystemInfoTest, AValueBecomesATextThatBeginsWithWhatStoodThere) {
  RegistryFunctions &tree = world.platform->DirectRegistry();
  const std::string key = R"(Software\Turf Desk Tests)";
  RegistryHandle handle = 0;
  ASSERT_EQ(tree.RegCreateKeyExA(RegistryRoot::LocalMachine, key, handle), RegSuccess);
  const std::string longest(1023, 'x');
  const struct {
    std::uint32_t type;
    std::string value;
    std::string text;
  } cases[] = {
      {RegSz, R"(C:\Tool.exe)", R"(C:\Tool.exe)"},
      {RegSz, longest, longest},
      {RegSz, longest + 'x', ""},
      {RegDword, "16909060", "&hbefore1234"},
      {RegDword, "5", "&hbefore005"},
      {RegDword, "-16733235", "&hbeforeFF0ABCD"},
  };
  for (const auto &[type, value, text] : cases) {
    ASSERT_EQ(SetValueEx(state, handle, "Value", type, value), RegSuccess);
    std::string read = "before";
    EXPECT_EQ(GetKeyValue(tree, RegistryRoot::LocalMachine, key, "Value", read), !text.empty());
    EXPECT_EQ(read, text);
  }
  tree.RegCloseKey(handle);
  for (const std::string &path : {key, key + R"(\missing)"}) {
    std::string read = "before";
    EXPECT_FALSE(GetKeyValue(tree, RegistryRoot::LocalMachine, path, "Missing", read));
    EXPECT_EQ(read, "");
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
  Name(R"(Shared Tools\MSINFO)", "PATH", R"(C:\Named\info.exe)");
  ExpectUnavailable();
  EXPECT_FALSE(HasNote(R"(C:\Shared\MSINFO32.EXE)"));
}

} // namespace turfdesk
