// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/Registry.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

constexpr const char *Key = R"(Software\Turf Desk Tests)";

class RegistryHelpersTest : public testing::Test {
protected:
  std::string Get(const char *name) { return GetRegistryValue(state, LocalMachine, Key, name, "default"); }
  bool Set(const char *name, const char *value) { return SetRegistryValue(state, LocalMachine, Key, name, value); }

  test::TestWorld world;
  SharedState &state = world.state;
};

} // namespace

TEST_F(RegistryHelpersTest, EmptyValuesAreStoredUnderANameOnly) {
  EXPECT_TRUE(Set("", ""));
  EXPECT_TRUE(RegistryKeyExists(state, LocalMachine, Key));
  EXPECT_FALSE(RegistryValueExists(state, LocalMachine, Key, ""));
  EXPECT_EQ(Get("x"), "default");
  EXPECT_TRUE(Set("x", ""));
  EXPECT_EQ(Get("X"), "");
  EXPECT_TRUE(Set("", "the default value"));
  EXPECT_EQ(Get(""), "the default value");
  state.registryValueKind = 1;
  EXPECT_TRUE(Set("n", "-42"));
  EXPECT_EQ(Get("n"), "-42");
}

TEST_F(RegistryHelpersTest, DeletingGivesUpInTheEnd) {
  Set("x", "1");
  auto &registry = test::FaultyRegistry::Install(state);
  EXPECT_FALSE(DeleteRegistryKey(state, LocalMachine, R"(Software\Turf Desk Tests\Missing)"));
  EXPECT_EQ(registry.deleteCalls, 0);
  registry.undeletable = true;
  EXPECT_FALSE(DeleteRegistryKey(state, LocalMachine, Key));
  EXPECT_EQ(registry.deleteCalls, 500);
  registry.undeletable = false;
  EXPECT_TRUE(DeleteRegistryKey(state, LocalMachine, Key));
  EXPECT_EQ(registry.deleteCalls, 501);
}

TEST_F(RegistryHelpersTest, DirectFunctionsKeepTheTerminatorAndTellOfFailures) {
  Set("x", "text");
  QueryValue(state, Key, "x");
  EXPECT_EQ(state.registryResult, std::string("text\0", 5));
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"text"});

  RegistryFunctions &tree = world.platform->DirectRegistry();
  CreateNewKey(state, ".hlx", RegistryRoot::ClassesRoot);
  SetKeyValue(state, ".hlx", "n", "513", RegDword);
  RegistryHandle handle = 0;
  ASSERT_EQ(tree.RegOpenKeyExA(RegistryRoot::ClassesRoot, ".hlx", handle), RegSuccess);
  std::string value;
  EXPECT_EQ(QueryValueEx(state, handle, "n", value), RegSuccess);
  EXPECT_EQ(QueryValueEx(state, handle, "missing", value), RegFileNotFound);
  EXPECT_EQ(value, "513");
  tree.RegCloseKey(handle);
  EXPECT_TRUE(world.boxes.shown.empty());

  SetKeyValue(state, ".none", "", "Sample", RegSz);
  EXPECT_EQ(world.boxes.TakeTexts(), (std::vector<std::string>{"RegOpenKey error - 2", "SetValue error - 6"}));
}

} // namespace turfdesk
