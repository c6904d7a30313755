// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "RegistryTools.h"

#include "platform/windows/WindowsRegistryFunctions.h"

namespace turfdesk {

namespace {

using namespace std::string_literals;
using test::Utf16;

constexpr RegistryRoot classes = RegistryRoot::ClassesRoot;
constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
constexpr std::int32_t invalidParameter = 87;

class RegistryFunctionsTest : public test::RegistryTest {
protected:
  std::int32_t Query(const std::string &name) { return mFunctions.RegQueryValueExA(mKey, name, mType, mData); }

  WindowsRegistryFunctions mFunctions;
  RegistryHandle mKey = 0;
  std::uint32_t mType = 0;
  std::string mData;
};

TEST_F(RegistryFunctionsTest, WriteFileTypesWhereTheSystemLooksForThem) {
  ASSERT_EQ(mFunctions.RegCreateKeyExA(classes, ".hlc", mKey), RegSuccess);
  ASSERT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "KESTRAVON Course\0"s), RegSuccess);
  EXPECT_TRUE(test::ExistsFor64BitPrograms(LR"(Software\Classes\.hlc)"));
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegSuccess);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegInvalidHandle);
  ASSERT_EQ(mFunctions.RegOpenKeyExA(classes, ".HLC", mKey), RegSuccess);
  EXPECT_EQ(Query(""), RegSuccess);
  EXPECT_EQ(mType, RegSz);
  EXPECT_EQ(mData, "KESTRAVON Course\0"s);
}

TEST_F(RegistryFunctionsTest, CarryTextsAndNumbers) {
  ASSERT_EQ(mFunctions.RegCreateKeyExA(machine, Below("Größe"), mKey), RegSuccess);
  EXPECT_TRUE(test::ExistsFor64BitPrograms(LR"(Software\Wow6432Node\Turf Desk Tests)"));
  ASSERT_EQ(mFunctions.RegSetValueExA(mKey, "Ähre", RegSz, "Käse\0"s), RegSuccess);
  EXPECT_EQ(Query("ÄHRE"), RegSuccess);
  EXPECT_EQ(mData, "Käse\0"s);
  ASSERT_EQ(mFunctions.RegSetValueExA(mKey, "Number", RegDword, "\x01\x02\0\0"s), RegSuccess);
  EXPECT_EQ(Query("number"), RegSuccess);
  EXPECT_EQ(mType, RegDword);
  EXPECT_EQ(mData, "\x01\x02\0\0"s);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "Short", RegDword, "\x01"), invalidParameter);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "Bytes", 3, "x"), invalidParameter);
  EXPECT_EQ(Query("Bytes"), RegFileNotFound);
}

TEST_F(RegistryFunctionsTest, ReadWhatOthersHaveWrittenAmiss) {
  test::WriteRaw(machine, WideKey(), L"unterminated", 1, Utf16(L"ab"));
  test::WriteRaw(machine, WideKey(), L"short", 4, "\x01");
  test::WriteRaw(machine, WideKey(), L"variable", 2, Utf16(L"%a%\0"s));
  ASSERT_EQ(mFunctions.RegOpenKeyExA(machine, Key, mKey), RegSuccess);
  EXPECT_EQ(Query("unterminated"), RegSuccess);
  EXPECT_EQ(mData, "ab\0"s);
  EXPECT_EQ(Query("short"), RegSuccess);
  EXPECT_EQ(mData, "\x01");
  EXPECT_EQ(Query("variable"), RegSuccess);
  EXPECT_EQ(mType, 2U);
}

TEST_F(RegistryFunctionsTest, TellWhatIsNotThere) {
  mKey = 77;
  EXPECT_EQ(mFunctions.RegOpenKeyExA(machine, Key, mKey), RegFileNotFound);
  EXPECT_EQ(mKey, 0U);
  EXPECT_EQ(mFunctions.RegSetValueExA(mKey, "", RegSz, "x"), RegInvalidHandle);
  EXPECT_EQ(Query(""), RegInvalidHandle);
  EXPECT_EQ(mFunctions.RegCloseKey(mKey), RegInvalidHandle);
  EXPECT_NE(mFunctions.RegCreateKeyExA(machine, Below("\\B"), mKey), RegSuccess);
  EXPECT_EQ(mKey, 0U);
}

} // namespace

} // namespace turfdesk
