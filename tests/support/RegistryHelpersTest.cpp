// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/Registry.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

class RegistryHelpersTest : public testing::Test {
protected:
  std::string Get(const char *key, const char *name) {
    return GetRegistryValue(world.state, LocalMachine, key, name, "default");
  }
  bool Set(const char *key, const char *name, const char *value) {
    return SetRegistryValue(world.state, LocalMachine, key, name, value);
  }

  test::TestWorld world;
};

} // namespace

TEST_F(RegistryHelpersTest, EmptyValuesAreStoredUnderANameOnly) {
  EXPECT_EQ(Get("Test", "x"), "default");
  EXPECT_TRUE(Set("Test", "", ""));
  EXPECT_TRUE(RegistryKeyExists(world.state, LocalMachine, "Test"));
  EXPECT_FALSE(RegistryValueExists(world.state, LocalMachine, "Test", ""));
  EXPECT_EQ(Get("Test", "x"), "default");
  EXPECT_TRUE(Set("Test", "x", ""));
  EXPECT_TRUE(RegistryValueExists(world.state, LocalMachine, "Test", "X"));
  EXPECT_EQ(Get("Test", "x"), "");
  EXPECT_TRUE(Set("Test", "", "the default value"));
  EXPECT_EQ(Get(R"(Test\)", ""), "the default value");
}

TEST_F(RegistryHelpersTest, TheIntegerKindReadsAndWritesNumbers) {
  world.state.registryValueKind = 1;
  EXPECT_TRUE(Set("Test", "n", "-42"));
  EXPECT_EQ(Get("Test", "n"), "-42");
}

TEST_F(RegistryHelpersTest, SubkeysOfNothingAreNoList) {
  EXPECT_TRUE(GetSubkeys(world.state, LocalMachine, "Missing").empty());
  Set("Test", "x", "1");
  EXPECT_TRUE(GetSubkeys(world.state, LocalMachine, "Test").empty());
  Set(R"(Test\b)", "", "");
  Set(R"(Test\A)", "", "");
  EXPECT_EQ(GetSubkeys(world.state, LocalMachine, "Test"), (StringList{"A", "b"}));
}

TEST_F(RegistryHelpersTest, DeletingGivesUpInTheEnd) {
  Set("Test", "x", "1");
  auto &registry = test::FaultyRegistry::Install(world.state);
  EXPECT_FALSE(DeleteRegistryKey(world.state, LocalMachine, "Missing"));
  EXPECT_EQ(registry.deleteCalls, 0);
  registry.undeletable = true;
  EXPECT_FALSE(DeleteRegistryKey(world.state, LocalMachine, "Test"));
  EXPECT_EQ(registry.deleteCalls, 500);
  registry.undeletable = false;
  EXPECT_TRUE(DeleteRegistryKey(world.state, LocalMachine, "Test"));
  EXPECT_EQ(registry.deleteCalls, 501);
}

TEST_F(RegistryHelpersTest, AFailedWriteLeavesItsWords) {
  test::FaultyRegistry::Install(world.state).failingValue = "x";
  EXPECT_FALSE(Set("Test", "x", "1"));
  EXPECT_EQ(GetRegistryError(world.state), "Access is denied.");
}

TEST_F(RegistryHelpersTest, DirectFunctionsKeepTheTerminatorAndTellOfFailures) {
  Set("Test", "x", "text");
  QueryValue(world.state, "Test", "x");
  EXPECT_EQ(world.state.registryResult, std::string("text\0", 5));
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"text"});

  CreateNewKey(world.state, ".hlx", RegistryRoot::ClassesRoot);
  SetKeyValue(world.state, ".hlx", "", "Sample", RegSz);
  SetKeyValue(world.state, ".hlx", "n", "513", RegDword);
  RegistryHandle key = 0;
  ASSERT_EQ(world.platform->DirectRegistry().RegOpenKeyExA(RegistryRoot::ClassesRoot, ".hlx", key), RegSuccess);
  std::string value;
  EXPECT_EQ(QueryValueEx(world.state, key, "n", value), RegSuccess);
  EXPECT_EQ(value, "513");
  EXPECT_EQ(QueryValueEx(world.state, key, "missing", value), RegFileNotFound);
  EXPECT_EQ(value, "513");
  world.platform->DirectRegistry().RegCloseKey(key);
  EXPECT_TRUE(world.boxes.shown.empty());

  SetKeyValue(world.state, ".none", "", "Sample", RegSz);
  EXPECT_EQ(world.boxes.TakeTexts(), (std::vector<std::string>{"RegOpenKey error - 2", "SetValue error - 6"}));
}

} // namespace turfdesk
