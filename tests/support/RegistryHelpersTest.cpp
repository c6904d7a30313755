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
  std::string Get(const char *keyPath, const char *name) {
    return GetRegistryValue(world.state, LocalMachine, keyPath, name, "default");
  }
  bool Set(const char *keyPath, const char *name, const char *value) {
    return SetRegistryValue(world.state, LocalMachine, keyPath, name, value);
  }

  test::TestWorld world;
};

} // namespace

TEST_F(RegistryHelpersTest, EmptyValuesAreStoredUnderANameOnly) {
  EXPECT_EQ(Get(Key, "x"), "default");
  EXPECT_TRUE(Set(Key, "", ""));
  EXPECT_TRUE(RegistryKeyExists(world.state, LocalMachine, Key));
  EXPECT_FALSE(RegistryValueExists(world.state, LocalMachine, Key, ""));
  EXPECT_EQ(Get(Key, "x"), "default");
  EXPECT_TRUE(Set(Key, "x", ""));
  EXPECT_TRUE(RegistryValueExists(world.state, LocalMachine, Key, "X"));
  EXPECT_EQ(Get(Key, "x"), "");
  EXPECT_TRUE(Set(Key, "", "the default value"));
  EXPECT_EQ(Get(R"(Software\Turf Desk Tests\)", ""), "the default value");
}

TEST_F(RegistryHelpersTest, TheIntegerKindReadsAndWritesNumbers) {
  world.state.registryValueKind = 1;
  EXPECT_TRUE(Set(Key, "n", "-42"));
  EXPECT_EQ(Get(Key, "n"), "-42");
}

TEST_F(RegistryHelpersTest, SubkeysOfNothingAreNoList) {
  EXPECT_TRUE(GetSubkeys(world.state, LocalMachine, R"(Software\Turf Desk Tests\Missing)").empty());
  Set(Key, "x", "1");
  EXPECT_TRUE(GetSubkeys(world.state, LocalMachine, Key).empty());
  Set(R"(Software\Turf Desk Tests\b)", "", "");
  Set(R"(Software\Turf Desk Tests\A)", "", "");
  EXPECT_EQ(GetSubkeys(world.state, LocalMachine, Key), (StringList{"A", "b"}));
}

TEST_F(RegistryHelpersTest, DeletingGivesUpInTheEnd) {
  Set(Key, "x", "1");
  auto &registry = test::FaultyRegistry::Install(world.state);
  EXPECT_FALSE(DeleteRegistryKey(world.state, LocalMachine, R"(Software\Turf Desk Tests\Missing)"));
  EXPECT_EQ(registry.deleteCalls, 0);
  registry.undeletable = true;
  EXPECT_FALSE(DeleteRegistryKey(world.state, LocalMachine, Key));
  EXPECT_EQ(registry.deleteCalls, 500);
  registry.undeletable = false;
  EXPECT_TRUE(DeleteRegistryKey(world.state, LocalMachine, Key));
  EXPECT_EQ(registry.deleteCalls, 501);
}

TEST_F(RegistryHelpersTest, AFailedWriteLeavesItsWords) {
  test::FaultyRegistry::Install(world.state).failingValue = "x";
  EXPECT_FALSE(Set(Key, "x", "1"));
  EXPECT_EQ(GetRegistryError(world.state), "Access is denied.");
}

TEST_F(RegistryHelpersTest, DirectFunctionsKeepTheTerminatorAndTellOfFailures) {
  Set(Key, "x", "text");
  QueryValue(world.state, Key, "x");
  EXPECT_EQ(world.state.registryResult, std::string("text\0", 5));
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"text"});

  CreateNewKey(world.state, ".hlx", RegistryRoot::ClassesRoot);
  SetKeyValue(world.state, ".hlx", "", "Sample", RegSz);
  SetKeyValue(world.state, ".hlx", "n", "513", RegDword);
  RegistryHandle handle = 0;
  ASSERT_EQ(world.platform->DirectRegistry().RegOpenKeyExA(RegistryRoot::ClassesRoot, ".hlx", handle), RegSuccess);
  std::string value;
  EXPECT_EQ(QueryValueEx(world.state, handle, "n", value), RegSuccess);
  EXPECT_EQ(value, "513");
  EXPECT_EQ(QueryValueEx(world.state, handle, "missing", value), RegFileNotFound);
  EXPECT_EQ(value, "513");
  world.platform->DirectRegistry().RegCloseKey(handle);
  EXPECT_TRUE(world.boxes.shown.empty());

  SetKeyValue(world.state, ".none", "", "Sample", RegSz);
  EXPECT_EQ(world.boxes.TakeTexts(), (std::vector<std::string>{"RegOpenKey error - 2", "SetValue error - 6"}));
}

} // namespace turfdesk
