// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

namespace turfdesk::test {

namespace {

using namespace std::string_literals;

constexpr RegistryRoot classes = RegistryRoot::ClassesRoot;
constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
constexpr std::int32_t invalidParameter = 87;

class RegistryFunctionsTest : public PlatformTest {
protected:
  std::int32_t Query(const std::string &name) { return mFunctions.RegQueryValueExA(mKey, name, mType, mData); }

  RegistryFunctions &mFunctions = mPlatform->DirectRegistry();
  RegistryHandle mKey = 77;
  std::uint32_t mType = 0;
  std::string mData;
};

TEST_F(RegistryFunctionsTest, WriteBesideAService) {
  const auto service = mPlatform->CreateRegistryService();
  service->SetRootKey("HKEY_CLASSES_ROOT");
  ASSERT_EQ(mFunctions.RegCreateKeyExA(classes, ".hlc", mKey), RegSuccess);
  ASSERT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "KESTRAVON Course\0"s), RegSuccess);
  ASSERT_EQ(mFunctions.RegSetValueExA(mKey, "Ähre", RegDword, "\x01\x02\0\0"s), RegSuccess);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegSuccess);
  ASSERT_TRUE(service->OpenKey(".HLC", false));
  EXPECT_EQ(service->GetStringValue(""), "KESTRAVON Course");
  EXPECT_EQ(service->GetLongValue("ähre"), 0x201);
  service->SetStringValue("", "Käse");
  ASSERT_EQ(mFunctions.RegOpenKeyExA(classes, ".HLC", mKey), RegSuccess);
  EXPECT_EQ(Query(""), RegSuccess);
  EXPECT_EQ(mType, RegSz);
  EXPECT_EQ(mData, "Käse\0"s);
  EXPECT_EQ(Query("ÄHRE"), RegSuccess);
  EXPECT_EQ(mType, RegDword);
  EXPECT_EQ(mData, "\x01\x02\0\0"s);
  EXPECT_EQ(Query("Missing"), RegFileNotFound);
  ASSERT_TRUE(service->DeleteKey(".hlc"));
  EXPECT_NE(mFunctions.RegSetValueExA(mKey, "", RegSz, "x"), RegSuccess);
  EXPECT_NE(Query(""), RegSuccess);
}

TEST_F(RegistryFunctionsTest, TellWhatIsAmiss) {
  EXPECT_EQ(mFunctions.RegOpenKeyExA(machine, Key, mKey), RegFileNotFound);
  EXPECT_EQ(mKey, 0U);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "x"), RegInvalidHandle);
  EXPECT_EQ(Query(""), RegInvalidHandle);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegInvalidHandle);
  mKey = 77;
  EXPECT_NE(mFunctions.RegCreateKeyExA(machine, Below("\\B"), mKey), RegSuccess);
  EXPECT_EQ(mKey, 0U);
  ASSERT_EQ(mFunctions.RegCreateKeyExA(machine, Below("New\\Deep"), mKey), RegSuccess);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "Short", RegDword, "\x01"), invalidParameter);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "Bytes", 3, "x"), invalidParameter);
  EXPECT_EQ(Query("Short"), RegFileNotFound);
  EXPECT_EQ(Query("Bytes"), RegFileNotFound);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegSuccess);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegInvalidHandle);
}

} // namespace

} // namespace turfdesk::test
