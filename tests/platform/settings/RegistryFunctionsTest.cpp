// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "SettingsTestTools.h"

#include "platform/posix/PosixRegistryFunctions.h"
#include "platform/posix/PosixRegistryService.h"

namespace turfdesk {

namespace {

constexpr RegistryRoot classes = RegistryRoot::ClassesRoot;
constexpr RegistryRoot machine = RegistryRoot::LocalMachine;

class RegistryFunctionsTest : public testing::Test {
protected:
  TemporaryHome mHome;
  SettingsAccess mAccess{mHome.Path(), std::chrono::milliseconds(20)};
  PosixRegistryFunctions mFunctions{mAccess};
  RegistryHandle mKey = 0;
  std::uint32_t mType = 0;
  std::string mData;
};

TEST_F(RegistryFunctionsTest, WritesBesideARegistryService) {
  PosixRegistryService service(mHome.Path());
  service.SetRootKey("HKEY_CLASSES_ROOT");
  ASSERT_EQ(mFunctions.RegCreateKeyExA(classes, ".hlc", mKey), RegSuccess);
  ASSERT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, std::string("KESTRAVON Course\0", 17)), RegSuccess);
  ASSERT_EQ(mFunctions.RegSetValueExA(mKey, "Number", RegDword, std::string("\x01\x02\0\0", 4)), RegSuccess);
  ASSERT_TRUE(service.OpenKey(".HLC", false));
  EXPECT_EQ(service.GetStringValue(""), "KESTRAVON Course");
  EXPECT_EQ(service.GetLongValue("number"), 0x201);
  service.SetStringValue("", "another");
  EXPECT_EQ(mFunctions.RegQueryValueExA(mKey, "", mType, mData), RegSuccess);
  EXPECT_EQ(mType, RegSz);
  EXPECT_EQ(mData, std::string("another\0", 8));
  EXPECT_EQ(mFunctions.RegQueryValueExA(mKey, "NUMBER", mType, mData), RegSuccess);
  EXPECT_EQ(mType, RegDword);
  EXPECT_EQ(mData, std::string("\x01\x02\0\0", 4));
  EXPECT_EQ(mFunctions.RegQueryValueExA(mKey, "Missing", mType, mData), RegFileNotFound);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "Short", RegDword, "\x01"), RegInvalidParameter);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "Binary", 3, "x"), RegInvalidParameter);
  ASSERT_TRUE(service.DeleteKey(".hlc"));
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "x"), RegKeyDeleted);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegSuccess);
}

TEST_F(RegistryFunctionsTest, TellsWhatIsNotThere) {
  mKey = 77;
  EXPECT_EQ(mFunctions.RegOpenKeyExA(machine, "Software", mKey), RegFileNotFound);
  EXPECT_EQ(mKey, 0U);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "x"), RegInvalidHandle);
  EXPECT_EQ(mFunctions.RegQueryValueExA(99, "", mType, mData), RegInvalidHandle);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegInvalidHandle);
  EXPECT_EQ(mFunctions.RegCreateKeyExA(machine, "A\\\\B", mKey), RegBadPathName);
  ASSERT_EQ(mFunctions.RegCreateKeyExA(machine, "Software", mKey), RegSuccess);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegSuccess);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegInvalidHandle);
}

TEST_F(RegistryFunctionsTest, TellsWhatIsTheMatterWithTheStore) {
  ASSERT_EQ(mFunctions.RegCreateKeyExA(classes, ".hlc", mKey), RegSuccess);
  const std::string store = mHome.Paths().store;
  std::filesystem::permissions(store, std::filesystem::perms::owner_read);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "x"), RegAccessDenied);
  std::filesystem::permissions(store, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  {
    const LockingProgram other(store);
    EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "x"), RegBusy);
  }
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "x"), RegSuccess);
  std::ofstream(store, std::ios::binary) << "no database";
  SettingsAccess laterAccess(mHome.Path());
  PosixRegistryFunctions others(laterAccess);
  EXPECT_EQ(others.RegOpenKeyExA(classes, ".hlc", mKey), RegCorrupt);
  EXPECT_EQ(mKey, 0U);
}

} // namespace

} // namespace turfdesk
